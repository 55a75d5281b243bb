#include <array>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "driver/Contract.h"
#include "shear/MatrixDegradation.h"
#include "shear/ShearCurve.h"

namespace {

struct PrefailCall {
  kx::test::UnidirectionalCall materials;
  double strength = 80e6;
  std::vector<double> stress, strain;
  double m = -7, b = -7, thr = -7;
  std::array<double, 3> c2mdeg{-7, -7, -7};
  std::int32_t failed = -7, code = -7;

  PrefailCall() {
    const kx::SecantLaw law{5e9, -8e-9, 1.16, 20e6};
    for (int i = 1; i <= 20; ++i) {
      stress.push_back(4e6 * i);
      strain.push_back(law.strainAt(4e6 * i));
    }
  }
  void run(std::int32_t count) {
    PREFAIL(&materials.fiberFraction,
            materials.matrix.data(),
            materials.fiber.data(),
            materials.lamina.data(),
            &strength,
            stress.data(),
            strain.data(),
            &count,
            &m,
            &b,
            &thr,
            c2mdeg.data(),
            &failed,
            &code);
  }
};

TEST(Prefail, WritesTheLawAndTheMatrixDegradation) {
  PrefailCall call;
  call.run(20);
  EXPECT_EQ(call.failed, 0);
  EXPECT_EQ(call.code, 0);
  EXPECT_NEAR(call.m / -8e-9, 1.0, 1e-6);
  EXPECT_NEAR(call.b / 1.16, 1.0, 1e-6);
  EXPECT_NEAR(call.thr / 20e6, 1.0, 1e-6);
  const auto expected = kx::unidirectionalMatrixDegradation(
      0.6, call.materials.fiber[6], call.materials.matrix[6], 1.16 - 8e-9 * 80e6);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(call.c2mdeg[i], expected[i], 1e-6) << i;
  }
}

TEST(Prefail, SaysWhyACurveIsRefused) {
  PrefailCall low;
  low.strength = 100e6;
  low.run(20);
  EXPECT_EQ(low.failed, 1);
  EXPECT_EQ(low.code, 1);
  PrefailCall linear;
  linear.strain = linear.stress;
  linear.run(20);
  EXPECT_EQ(linear.failed, 1);
  EXPECT_EQ(linear.code, 2);
}

TEST(Prefail, AbsurdCountsAreNoPoints) {
  for (const std::int32_t count : {0,
                                   -3,
                                   std::numeric_limits<std::int32_t>::min(),
                                   std::numeric_limits<std::int32_t>::max()}) {
    PrefailCall call;
    call.run(count);
    EXPECT_EQ(call.failed, 1) << count;
    EXPECT_EQ(call.code, 1) << count;
  }
}

}  // namespace
