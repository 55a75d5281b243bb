// SPDX-License-Identifier: BSD-3-Clause
#include <limits>

#include <gtest/gtest.h>

#include "contract/Contract.h"
#include "shear/MatrixDegradation.h"
#include "shear/ShearCurve.h"

namespace {

struct PrefailCall : kx::test::Prefail {
  PrefailCall() {
    const kx::test::UnidirectionalCall materials;
    fiberVolumeFraction = materials.fiberVolumeFraction;
    matrix = materials.matrix;
    fiber = materials.fiber;
    lamina = materials.lamina;
    shearStrength = 80e6;
    pointCount = 20;
    const kx::SecantLaw law{5e9, -8e-9, 1.16, 20e6};
    for (int i = 1; i <= pointCount; ++i) {
      stress.push_back(4e6 * i);
      strain.push_back(law.strainAt(4e6 * i));
    }
  }
};

TEST(Prefail, WritesTheLawAndTheMatrixDegradation) {
  PrefailCall call;
  call.run();
  EXPECT_EQ(call.failed.value(), 0);
  EXPECT_EQ(call.code.value(), 0);
  EXPECT_NEAR(call.m.value() / -8e-9, 1.0, 1e-6);
  EXPECT_NEAR(call.b.value() / 1.16, 1.0, 1e-6);
  EXPECT_NEAR(call.thr.value() / 20e6, 1.0, 1e-6);
  const auto expected =
      kx::unidirectionalMatrixDegradation(0.6, call.fiber[6], call.matrix[6], 1.16 - 8e-9 * 80e6);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(call.c2mdeg[i], expected[i], 1e-6) << i;
  }
}

TEST(Prefail, SaysWhyACurveIsRefused) {
  PrefailCall low;
  low.shearStrength = 100e6;
  low.run();
  EXPECT_EQ(low.failed.value(), 1);
  EXPECT_EQ(low.code.value(), 1);
  PrefailCall linear;
  linear.strain = linear.stress;
  linear.run();
  EXPECT_EQ(linear.failed.value(), 1);
  EXPECT_EQ(linear.code.value(), 2);
}

TEST(Prefail, AbsurdCountsAreNoPoints) {
  for (const std::int32_t count : {0,
                                   -3,
                                   std::numeric_limits<std::int32_t>::min(),
                                   std::numeric_limits<std::int32_t>::max()}) {
    PrefailCall call;
    call.pointCount = count;
    call.run();
    EXPECT_EQ(call.failed.value(), 1) << count;
    EXPECT_EQ(call.code.value(), 1) << count;
  }
}

}  // namespace
