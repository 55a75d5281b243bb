#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "driver/Contract.h"

namespace {

constexpr double kAbsurd[] = {0.0,
                              -1.0,
                              1.0,
                              1e-300,
                              1e300,
                              -1e300,
                              std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity()};

class Absurd {
 public:
  /// Replaces about one number in `odds`.
  template <typename Numbers>
  void spoil(Numbers& numbers, unsigned odds) {
    for (double& number : numbers) {
      if (random_() % odds == 0) {
        number = kAbsurd[random_() % std::size(kAbsurd)];
      }
    }
  }

 private:
  std::mt19937 random_{17};
};

TEST(AbsurdInput, UniOptimizationAlwaysAnswers) {
  Absurd absurd;
  for (int trial = 0; trial < 400; ++trial) {
    kx::test::UnidirectionalCall call;
    const unsigned odds = trial % 2 == 0 ? 4 : 25;
    std::array<double, 2> scalars{call.fiberFraction, call.temperature};
    absurd.spoil(scalars, odds);
    call.fiberFraction = scalars[0];
    call.temperature = scalars[1];
    absurd.spoil(call.lamina, odds);
    absurd.spoil(call.fiber, odds);
    absurd.spoil(call.matrix, odds);
    absurd.spoil(call.strengths, odds);
    for (auto& row : call.sn) {
      absurd.spoil(row, odds);
    }
    call.run();
    for (const double number : call.rows) {
      ASSERT_TRUE(std::isfinite(number)) << trial;
    }
    for (std::size_t i = 0; i < 4; ++i) {
      ASSERT_TRUE(call.errors[i] >= 0.0) << trial;
    }
    ASSERT_LE(call.errors[1], std::max(call.errors[0], 1.0)) << trial;
    ASSERT_GE(call.iterations[0], 0) << trial;
    ASSERT_GE(call.iterations[1], 0) << trial;
  }
}

TEST(AbsurdInput, PrefailAlwaysAnswers) {
  Absurd absurd;
  for (int trial = 0; trial < 400; ++trial) {
    kx::test::UnidirectionalCall materials;
    std::array<double, 1> strength{80e6};
    std::array<double, 12> stress{}, strain{};
    for (std::size_t i = 0; i < stress.size(); ++i) {
      stress[i] = 7e6 * static_cast<double>(i + 1);
      strain[i] = stress[i] / 5e9 + 3e-26 * std::pow(stress[i], 3);
    }
    absurd.spoil(strength, 6);
    absurd.spoil(stress, 6);
    absurd.spoil(strain, 6);
    absurd.spoil(materials.fiber, 6);
    absurd.spoil(materials.matrix, 6);
    const std::int32_t count = 12;
    double m = -7, b = -7, thr = -7;
    std::array<double, 3> c2mdeg{-7, -7, -7};
    std::int32_t failed = -7, code = -7;
    PREFAIL(&materials.fiberFraction,
            materials.matrix.data(),
            materials.fiber.data(),
            materials.lamina.data(),
            strength.data(),
            stress.data(),
            strain.data(),
            &count,
            &m,
            &b,
            &thr,
            c2mdeg.data(),
            &failed,
            &code);
    ASSERT_TRUE(std::isfinite(m + b + thr + c2mdeg[0] + c2mdeg[1] + c2mdeg[2])) << trial;
    ASSERT_TRUE(failed == 0 || failed == 1) << trial;
    ASSERT_EQ(failed == 0, code == 0) << trial;
  }
}

TEST(AbsurdInput, MissingArgumentsAreNotFollowed) {
  UNI_OPTIMIZATION(nullptr,
                   nullptr,
                   nullptr,
                   nullptr,
                   nullptr,
                   nullptr,
                   nullptr,
                   nullptr,
                   nullptr,
                   nullptr,
                   nullptr,
                   nullptr);
  PREFAIL(nullptr,
          nullptr,
          nullptr,
          nullptr,
          nullptr,
          nullptr,
          nullptr,
          nullptr,
          nullptr,
          nullptr,
          nullptr,
          nullptr,
          nullptr,
          nullptr);
  FAT_DCMP_PROPS(nullptr,
                 nullptr,
                 nullptr,
                 nullptr,
                 nullptr,
                 nullptr,
                 nullptr,
                 nullptr,
                 nullptr,
                 nullptr,
                 nullptr,
                 nullptr);
  FATIGUE_PW_OPTI(nullptr,
                  nullptr,
                  nullptr,
                  nullptr,
                  nullptr,
                  nullptr,
                  nullptr,
                  nullptr,
                  nullptr,
                  nullptr,
                  nullptr,
                  nullptr);
  SETMAXERROR(nullptr, nullptr, nullptr);
  SETISOFLAG(nullptr);
  FHT_GETDEFPROPS(nullptr, nullptr, nullptr, nullptr, nullptr);
  EXPECT_EQ(INSITU_STATUS(nullptr, nullptr), 0);
}

}  // namespace
