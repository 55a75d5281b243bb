// SPDX-License-Identifier: BSD-3-Clause
// Bond constants fitted to random tests: sound, scattered, or none that a material would give.

#include <cmath>
#include <initializer_list>

#include <gtest/gtest.h>

#include "fatigue/UnidirectionalFatigue.h"
#include "support/RandomMaterials.h"

namespace kx {
namespace {

void expectFiniteAndNotNegative(const BondConstants& c) {
  for (const double constant : {c.breakingEnergy,
                                c.healingEnergy,
                                c.breakingActivation,
                                c.healingActivation,
                                c.loadTransfer,
                                c.amplitudeFactor}) {
    EXPECT_TRUE(std::isfinite(constant) && constant >= 0.0) << constant;
  }
}

/// What holds for the fit of any direction that has a strength or a test.
void expectSound(const DirectionFit& fit) {
  EXPECT_TRUE(fit.isFitted());
  expectFiniteAndNotNegative(fit.constants);
  expectFiniteAndNotNegative(fit.standardErrors);
  EXPECT_GE(fit.finalError, 0.0);
  EXPECT_LE(fit.finalError, fit.initialError);
  // at most a search and its four relaxations, each twice where the amplitude factor is held at 0
  constexpr int kSearches = 10;
  constexpr int kSteps = 60;
  EXPECT_GE(fit.iterations, 0);
  EXPECT_LE(fit.iterations, kSearches * kSteps);
}

TEST(RandomFatigue, FitsOfADirectionAreFiniteNoWorseThanThePriorAndEnd) {
  test::RandomMaterials random(71);
  for (int trial = 0; trial < 2000 && !testing::Test::HasFailure(); ++trial) {
    SCOPED_TRACE(trial);
    const double strength = random.logUniform(1e6, 5e9);
    DirectionData data{trial % 4 == 0 ? 0.0 : strength, random.logUniform(1e-3, 1e2), {}};
    for (int i = 0; i < 1 + trial % 12; ++i) {
      data.tests.push_back({strength * random.uniform(0.05, 1.2),
                            random.uniform(-1.0, 1.0),
                            random.logUniform(1.0, 1e9),
                            random.logUniform(0.01, 100.0)});
    }
    expectSound(fitDirection(data, random.uniform(150.0, 600.0)));
  }
}

TEST(RandomFatigue, FitsOfALaminaAreFiniteAtAnyAngle) {
  test::RandomMaterials random(73);
  for (int trial = 0; trial < 500 && !testing::Test::HasFailure(); ++trial) {
    SCOPED_TRACE(trial);
    const double transverse = random.logUniform(1e7, 2e8);
    const PlyStrengths strengths{{random.logUniform(3e8, 4e9), random.logUniform(3e8, 2e9)},
                                 {transverse, random.uniform(1.0, 5.0) * transverse},
                                 random.uniform(0.7, 2.0) * transverse};
    const MatrixConcentration matrix{random.logUniform(1e-3, 1.0), random.uniform(0.3, 2.0)};
    std::vector<SnRecord> records;
    for (int i = 0; i < 1 + trial % 10; ++i) {
      SnRecord record;
      record.stress = random.uniform(0.2, 1.0) * transverse * (i % 2 == 0 ? 1.0 : -1.0);
      record.life = random.logUniform(1.0, 1e8);
      record.frequency = random.logUniform(0.1, 50.0);
      record.angle = random.uniform(-180.0, 180.0);
      record.ratio = random.uniform(-1.0, 1.0);
      records.push_back(record);
    }
    const FatigueFit fit =
        fitUnidirectionalFatigue(records, random.uniform(200.0, 500.0), strengths, matrix);
    expectSound(fit.longitudinal);
    expectSound(fit.transverse);
    EXPECT_LE(fit.longitudinal.tests + fit.transverse.tests, records.size());
  }
}

}  // namespace
}  // namespace kx
