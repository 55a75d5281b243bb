// SPDX-License-Identifier: BSD-3-Clause
#include "fatigue/PlainWeaveFatigue.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace {

constexpr double kTemperature = 296.15;
constexpr kx::WeaveStrengths kGlassFabric{{180e6, 170e6}, {400e6, 380e6}, 45e6, 90e6};

/// Fill and warp carry the load along them; the matrix in a tow has 0.1 of its axial and 0.8 of its
/// transverse stress.
kx::WeaveDecomposition decomposition() {
  kx::WeaveDecomposition weave;
  weave.fill(kx::k11, kx::k11) = 1.6;
  weave.fill(kx::k22, kx::k11) = 0.02;
  weave.warp(kx::k11, kx::k11) = 0.6;
  weave.warp(kx::k22, kx::k22) = 1.5;
  for (auto* matrix : {&weave.fillMatrix, &weave.warpMatrix}) {
    (*matrix)(kx::k11, kx::k11) = 0.1;
    (*matrix)(kx::k22, kx::k22) = 0.8;
    (*matrix)(kx::k11, kx::k22) = 0.05;
  }
  return weave;
}

/// The published trend of glass fabrics: a tenth of the strength per decade at ratio 0.1.
std::vector<kx::SnRecord> trend(double angle) {
  std::vector<kx::SnRecord> records;
  for (int decade = 2; decade <= 6; ++decade) {
    records.push_back({kGlassFabric.ultimate.tension * (1.0 - 0.1 * decade),
                       std::pow(10.0, decade),
                       5.0,
                       angle,
                       0.1});
  }
  return records;
}

TEST(PlainWeaveFatigue, ChainsWeaveTowAndMatrix) {
  const auto stress = kx::towMatrixStress(decomposition());
  EXPECT_NEAR(stress.fillAlong, 0.1 * 1.6 + 0.05 * 0.02, 1e-15);
  EXPECT_NEAR(stress.warpAlong, 0.1 * 1.5, 1e-15);
  EXPECT_NEAR(stress.warpAcross, 0.8 * 0.6, 1e-15);
}

TEST(PlainWeaveFatigue, SlopeOfGlassFabricsIsMet) {
  const auto fit =
      kx::fitPlainWeaveFatigue(trend(0.0), kTemperature, kGlassFabric, decomposition());
  const double matrix = kx::towMatrixStress(decomposition()).fillAlong;
  const auto decades = [&](double fraction) {
    return kx::lnTimeToFailure(fit.longitudinal.constants,
                               {fraction * 400e6 * matrix, 0.1, kTemperature}) /
           std::log(10.0);
  };
  const double slope = 0.3 / (decades(0.45) - decades(0.75));  // of the strength per decade
  // the range of published slopes
  EXPECT_GT(slope, 0.08);
  EXPECT_LT(slope, 0.13);
  EXPECT_LT(fit.longitudinal.finalError, 0.2);
}

TEST(PlainWeaveFatigue, KneeStrengthAnchorsTheTransverseDirection) {
  const auto fit =
      kx::fitPlainWeaveFatigue(trend(0.0), kTemperature, kGlassFabric, decomposition());
  const double matrix = kx::towMatrixStress(decomposition()).warpAcross;
  EXPECT_NEAR(
      kx::rampStrength(fit.transverse.constants, kTemperature) / (180e6 * matrix), 1.0, 1e-9);
}

TEST(PlainWeaveFatigue, BalancedWeaveLivesAlikeAlongFillAndWarp) {
  auto weave = decomposition();
  weave.warp(kx::k22, kx::k22) = 1.6;
  weave.warp(kx::k11, kx::k22) = 0.02;
  const auto fill = kx::fitPlainWeaveFatigue(trend(0.0), kTemperature, kGlassFabric, weave);
  const auto warp = kx::fitPlainWeaveFatigue(trend(90.0), kTemperature, kGlassFabric, weave);
  EXPECT_NEAR(
      warp.longitudinal.constants.breakingEnergy / fill.longitudinal.constants.breakingEnergy,
      1.0,
      1e-9);
}

TEST(PlainWeaveFatigue, WarpRecordsCountByTheMatrixStressTheyCause) {
  const auto matrix = kx::towMatrixStress(decomposition());
  auto alongWarp = trend(90.0);
  for (auto& record : alongWarp) {
    record.stress *= matrix.fillAlong / matrix.warpAlong;
  }
  const auto fill =
      kx::fitPlainWeaveFatigue(trend(0.0), kTemperature, kGlassFabric, decomposition());
  const auto warp =
      kx::fitPlainWeaveFatigue(alongWarp, kTemperature, kGlassFabric, decomposition());
  const auto ratio = [](double a, double b) { return a / b; };
  // the same problem but for the rounding of the stresses
  EXPECT_NEAR(ratio(warp.longitudinal.constants.breakingActivation,
                    fill.longitudinal.constants.breakingActivation),
              1.0,
              1e-6);
}

TEST(PlainWeaveFatigue, MissingCompressiveKneeFallsBackOnTheUltimateStrength) {
  auto records = trend(45.0);
  for (auto& record : records) {
    record.ratio = 10.0;
  }
  auto missing = kGlassFabric;
  missing.knee.compression = 0.0;
  auto given = kGlassFabric;
  given.knee.compression = given.ultimate.compression;
  const auto one = kx::fitPlainWeaveFatigue(records, kTemperature, missing, decomposition());
  const auto other = kx::fitPlainWeaveFatigue(records, kTemperature, given, decomposition());
  ASSERT_TRUE(one.transverse.isFitted());
  EXPECT_EQ(one.transverse.constants.breakingEnergy, other.transverse.constants.breakingEnergy);
}

TEST(PlainWeaveFatigue, ObliqueRecordsSetTheTransverseDirection) {
  const auto axial =
      kx::fitPlainWeaveFatigue(trend(0.0), kTemperature, kGlassFabric, decomposition());
  auto records = trend(0.0);
  for (int decade = 3; decade <= 6; ++decade) {
    records.push_back({90e6 * (1.0 - 0.1 * decade), std::pow(10.0, decade), 5.0, 45.0, 0.1});
  }
  const auto both = kx::fitPlainWeaveFatigue(records, kTemperature, kGlassFabric, decomposition());
  EXPECT_EQ(both.longitudinal.constants.breakingEnergy,
            axial.longitudinal.constants.breakingEnergy);
  EXPECT_NE(both.transverse.constants.breakingEnergy, axial.transverse.constants.breakingEnergy);
  EXPECT_LT(both.transverse.finalError, 0.5);
}

TEST(PlainWeaveFatigue, MissingKneeFallsBackOnTheUltimateStrength) {
  auto strengths = kGlassFabric;
  strengths.knee = {0.0, 0.0};
  const auto fit = kx::fitPlainWeaveFatigue({}, kTemperature, strengths, decomposition());
  const double matrix = kx::towMatrixStress(decomposition()).warpAcross;
  EXPECT_NEAR(
      kx::rampStrength(fit.transverse.constants, kTemperature) / (400e6 * matrix), 1.0, 1e-9);
}

TEST(PlainWeaveFatigue, DecompositionThatIsNoneGivesZeros) {
  kx::WeaveDecomposition weave;
  EXPECT_EQ(kx::fitPlainWeaveFatigue(trend(0.0), kTemperature, kGlassFabric, weave)
                .longitudinal.constants.breakingEnergy,
            0.0);
  weave.fill.fill(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(kx::fitPlainWeaveFatigue(trend(90.0), kTemperature, kGlassFabric, weave)
                .longitudinal.constants.breakingEnergy,
            0.0);
}

}  // namespace
