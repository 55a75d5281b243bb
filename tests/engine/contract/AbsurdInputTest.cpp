// SPDX-License-Identifier: BSD-3-Clause
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "contract/Contract.h"

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
  void spoil(double& number, unsigned odds) {
    if (random_() % odds == 0) {
      number = kAbsurd[random_() % std::size(kAbsurd)];
    }
  }
  template <typename Numbers>
  void spoil(Numbers& numbers, unsigned odds) {
    for (auto& number : numbers) {
      spoil(number, odds);
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
    absurd.spoil(call.fiberVolumeFraction, odds);
    absurd.spoil(call.temperature, odds);
    absurd.spoil(call.lamina, odds);
    absurd.spoil(call.fiber, odds);
    absurd.spoil(call.matrix, odds);
    absurd.spoil(call.strengths, odds);
    absurd.spoil(call.sn, odds);
    call.run();
    for (const double number : call.fatigueRows) {
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
    const kx::test::UnidirectionalCall materials;
    kx::test::Prefail call;
    call.fiberVolumeFraction = materials.fiberVolumeFraction;
    call.matrix = materials.matrix;
    call.fiber = materials.fiber;
    call.lamina = materials.lamina;
    call.shearStrength = 80e6;
    call.pointCount = 12;
    for (int i = 1; i <= call.pointCount; ++i) {
      const double stress = 7e6 * i;
      call.stress.push_back(stress);
      call.strain.push_back(stress / 5e9 + 3e-26 * std::pow(stress, 3));
    }
    absurd.spoil(call.shearStrength, 6);
    absurd.spoil(call.stress, 6);
    absurd.spoil(call.strain, 6);
    absurd.spoil(call.fiber, 6);
    absurd.spoil(call.matrix, 6);
    call.run();
    const auto& c2mdeg = call.c2mdeg;
    ASSERT_TRUE(std::isfinite(call.m.value() + call.b.value() + call.thr.value() + c2mdeg[0] +
                              c2mdeg[1] + c2mdeg[2]))
        << trial;
    const bool isReduced = call.failed.value() == 0;
    ASSERT_TRUE(isReduced || call.failed.value() == 1) << trial;
    ASSERT_EQ(isReduced, call.code.value() == 0) << trial;
  }
}

/// Calls a function with no address for any of its arguments.
template <typename Answer, typename... Arguments>
Answer callWithNothing(Answer (*const function)(Arguments*...)) {
  return function(static_cast<Arguments*>(nullptr)...);
}

TEST(AbsurdInput, MissingArgumentsAreNotFollowed) {
  callWithNothing(UNI_OPTIMIZATION);
  callWithNothing(PREFAIL);
  callWithNothing(FAT_DCMP_PROPS);
  callWithNothing(FATIGUE_PW_OPTI);
  callWithNothing(SETMAXERROR);
  callWithNothing(SETISOFLAG);
  callWithNothing(FHT_GETDEFPROPS);
  EXPECT_EQ(callWithNothing(INSITU_STATUS), 0);
}

}  // namespace
