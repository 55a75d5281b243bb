// SPDX-License-Identifier: BSD-3-Clause
#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "contract/Contract.h"
#include "fatigue/UnidirectionalFatigue.h"
#include "lamina/Concentration.h"
#include "support/Bits.h"

namespace {

using kx::test::UnidirectionalCall;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

std::vector<unsigned char> bitsOf(const kx::test::Out<double, 12>& constants) {
  return kx::test::bitsOf(constants.data(), constants.size());
}

TEST(UniOptimization, MeetsALaminaThatIsOne) {
  UnidirectionalCall call;
  const auto target = call.lamina;
  call.run();
  for (std::size_t i = 0; i < target.size(); ++i) {
    EXPECT_NEAR(call.lamina[i] / target[i], 1.0, 1e-5) << i;
  }
  EXPECT_GT(call.errors[0], 0.01);
  EXPECT_LT(call.errors[1], 1e-6);
  EXPECT_GT(call.errors[2], 0.01);
  EXPECT_LT(call.errors[3], 1e-6);
  EXPECT_GT(call.iterations[0], 0);
  EXPECT_GT(call.iterations[1], 0);
}

TEST(UniOptimization, FitsTheLaminaWithoutRowsForFatigue) {
  UnidirectionalCall usual;
  usual.run();
  UnidirectionalCall call;
  const std::int32_t none = 0;
  UNI_OPTIMIZATION(&call.fiberVolumeFraction,
                   call.lamina.data(),
                   call.fiber.data(),
                   call.matrix.data(),
                   &call.temperature,
                   &none,
                   nullptr,
                   nullptr,
                   nullptr,
                   call.strengths.data(),
                   call.errors.data(),
                   call.iterations.data());
  EXPECT_EQ(call.fiber, usual.fiber);
  EXPECT_EQ(call.matrix, usual.matrix);
  EXPECT_EQ(call.errors, usual.errors);
}

TEST(UniOptimization, LeavesTheFatigueErrorsAndCountAlone) {
  UnidirectionalCall call;
  call.run();
  EXPECT_EQ(call.errors[4], kx::test::kUntouched);
  EXPECT_EQ(call.errors[5], kx::test::kUntouched);
  EXPECT_EQ(call.iterations[2], kx::test::kUntouched);
}

TEST(UniOptimization, LaminaIsWhatTheConstituentsGive) {
  UnidirectionalCall call;
  call.lamina[6] *= 0.1;  // a shear modulus that nothing fits
  call.run();
  const auto fiber = kx::transverselyIsotropic(kx::propertiesFrom(call.fiber.data()));
  const auto matrix = kx::transverselyIsotropic(kx::propertiesFrom(call.matrix.data()));
  const auto lamina = kx::test::twelve(kx::homogenise(fiber, matrix, 0.6).effective);
  for (std::size_t i = 0; i < lamina.size(); ++i) {
    EXPECT_NEAR(call.lamina[i] / lamina[i], 1.0, 1e-9) << i;
  }
  EXPECT_GT(call.errors[1], 1e-3);
}

TEST(UniOptimization, RowsHoldTheSixConstantsOfEachDirection) {
  UnidirectionalCall call;
  call.run();
  const auto fiber = kx::transverselyIsotropic(kx::propertiesFrom(call.fiber.data()));
  const auto matrix = kx::transverselyIsotropic(kx::propertiesFrom(call.matrix.data()));
  const auto lamina = kx::homogenise(fiber, matrix, 0.6);
  const auto field = kx::concentration(matrix, lamina.matrix, lamina.effective);
  std::vector<kx::SnRecord> records;
  for (const auto& row : call.sn) {
    records.push_back({row[0], row[1], row[2], row[3], row[4]});
  }
  const auto fit = kx::fitUnidirectionalFatigue(records,
                                                call.temperature,
                                                {{1950e6, 1480e6}, {48e6, 200e6}, 79e6},
                                                {field.stress(0, 0), field.stress(1, 1)});
  const auto& along = fit.longitudinal.constants;
  const auto& across = fit.transverse.constants;
  const double expected[] = {along.breakingEnergy,
                             along.healingEnergy,
                             along.breakingActivation,
                             along.healingActivation,
                             along.loadTransfer,
                             along.amplitudeFactor,
                             across.breakingEnergy,
                             across.healingEnergy,
                             across.breakingActivation,
                             across.healingActivation,
                             across.loadTransfer,
                             across.amplitudeFactor};
  for (std::size_t i = 0; i < call.fatigueRows.size(); ++i) {
    EXPECT_NEAR(call.fatigueRows[i], expected[i], 1e-9 * std::abs(expected[i])) << i;
  }
  EXPECT_GT(call.fatigueRows[0], 5e4);
  EXPECT_GT(call.fatigueRows[6], 5e4);
}

TEST(UniOptimization, IsotropicFlagKeepsTheMatrixIsotropic) {
  for (const std::int32_t flag : {1, 0}) {
    UnidirectionalCall call;
    SETISOFLAG(&flag);
    call.run();
    const auto& m = call.matrix;
    EXPECT_EQ(m[0], m[1]);
    EXPECT_EQ(m[0], m[2]);
    EXPECT_EQ(m[3], m[4]);
    EXPECT_EQ(m[6], m[8]);
    EXPECT_EQ(m[9], m[11]);
  }
}

TEST(UniOptimization, WithoutRecordsTheStrengthsAloneGiveTheConstants) {
  for (const std::int32_t count : {0,
                                   -1,
                                   std::numeric_limits<std::int32_t>::min(),
                                   std::numeric_limits<std::int32_t>::max()}) {
    UnidirectionalCall call;
    call.run(count);
    UnidirectionalCall none;
    none.sn.clear();
    none.run();
    EXPECT_EQ(call.fatigueRows, none.fatigueRows) << count;
    EXPECT_GT(call.fatigueRows[0], 0.0);
  }
}

TEST(UniOptimization, WithoutTemperatureTheFatigueConstantsAreZero) {
  for (const double temperature : {0.0, -296.0, kNan}) {
    UnidirectionalCall call;
    call.temperature = temperature;
    call.fatigueRows.fill(3.0);
    call.run();
    EXPECT_EQ(call.fatigueRows, kx::test::Twelve{}) << temperature;
    EXPECT_LT(call.errors[1], 1e-6);
  }
}

TEST(UniOptimization, WhereThereIsNoModelThereAreNoNumbers) {
  for (const double fraction : {60.0, 0.0, 1.0, -0.6, kNan}) {
    UnidirectionalCall call;
    call.fiberVolumeFraction = fraction;
    call.run();
    for (const auto& set : {call.lamina, call.fiber, call.matrix}) {
      for (const double number : set) {
        EXPECT_TRUE(std::isnan(number)) << fraction;
      }
    }
    for (std::size_t i = 0; i < 4; ++i) {
      EXPECT_EQ(call.errors[i], 1.0) << fraction;
    }
    EXPECT_EQ(call.iterations[0], 0);
    EXPECT_EQ(call.iterations[1], 0);
    EXPECT_EQ(call.fatigueRows, kx::test::Twelve{});
  }
}

TEST(UniOptimization, SameInputSameBits) {
  UnidirectionalCall first, second;
  first.run();
  second.run();
  EXPECT_EQ(bitsOf(first.fiber), bitsOf(second.fiber));
  EXPECT_EQ(bitsOf(first.matrix), bitsOf(second.matrix));
  EXPECT_EQ(bitsOf(first.fatigueRows), bitsOf(second.fatigueRows));
  EXPECT_EQ(first.iterations, second.iterations);
}

}  // namespace
