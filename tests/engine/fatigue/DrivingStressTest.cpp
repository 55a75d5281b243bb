// SPDX-License-Identifier: BSD-3-Clause
#include "fatigue/DrivingStress.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(DrivingStress, AnglesWithinOneDegreeCountAsOnTheAxis) {
  for (const double angle : {0.0, 0.9, -0.9, 179.5, 180.0, -180.0}) {
    EXPECT_EQ(kx::loadAxis(angle), kx::LoadAxis::along) << angle;
  }
  for (const double angle : {90.0, 89.2, -90.0, 270.0}) {
    EXPECT_EQ(kx::loadAxis(angle), kx::LoadAxis::across) << angle;
  }
  for (const double angle : {1.1, 10.0, -45.0, 60.0, 88.5}) {
    EXPECT_EQ(kx::loadAxis(angle), kx::LoadAxis::oblique) << angle;
  }
}

TEST(DrivingStress, CompressionUsesInverseRatioAndCompressiveStrength) {
  kx::DirectionalTests tests({50e6, 160e6}, 80e6);
  tests.addAxial({-120e6, 1e4, 3.0, 90.0, 10.0});
  const auto data = tests.data(1.0);
  EXPECT_EQ(data.strength, 160e6);
  ASSERT_EQ(data.tests.size(), 1U);
  EXPECT_DOUBLE_EQ(data.tests[0].peak, 120e6);
  EXPECT_DOUBLE_EQ(data.tests[0].ratio, 0.1);
}

TEST(DrivingStress, ReversedLoadCountsAsTension) {
  for (const double stress : {30e6, -30e6}) {
    kx::DirectionalTests tests({50e6, 160e6}, 80e6);
    tests.addAxial({stress, 1e4, 3.0, 90.0, -1.0});
    EXPECT_EQ(tests.data(1.0).strength, 50e6);
  }
}

TEST(DrivingStress, MixedSensesCountByTheFractionOfTheirStrength) {
  kx::DirectionalTests tests({50e6, 160e6}, 80e6);
  tests.addAxial({25e6, 1e4, 3.0, 90.0, 0.1});
  tests.addAxial({-80e6, 1e4, 3.0, 90.0, 10.0});
  const auto data = tests.data(1.0);
  EXPECT_EQ(data.strength, 50e6);
  EXPECT_DOUBLE_EQ(data.tests[0].peak, 25e6);
  EXPECT_DOUBLE_EQ(data.tests[1].peak, 25e6);
}

TEST(DrivingStress, ShearWeighsByTheRatioOfTheStrengths) {
  kx::DirectionalTests tests({50e6, 160e6}, 100e6);
  const auto direction = kx::loadDirection(45.0);
  tests.addOblique({60e6, 1e4, 3.0, 45.0, 0.1},
                   direction.sine * direction.sine,
                   direction.sine * direction.cosine);
  EXPECT_NEAR(tests.data(1.0).tests[0].peak, 60e6 * std::hypot(0.5, 0.5 * 0.5), 1.0);
}

TEST(DrivingStress, LifeWithoutFrequencyIsATime) {
  kx::DirectionalTests tests({50e6, 160e6}, 100e6);
  tests.addAxial({40e6, 1e4, 0.0, 0.0, 0.1});
  EXPECT_EQ(tests.data(1.0).tests[0].frequency, 1.0);
}

TEST(DrivingStress, RecordsThatSayNothingAreDropped) {
  kx::DirectionalTests tests({50e6, 160e6}, 100e6);
  tests.addAxial({0.0, 1e4, 1.0, 0.0, 0.1});
  tests.addAxial({kNan, 1e4, 1.0, 0.0, 0.1});
  tests.addAxial({40e6, 0.0, 1.0, 0.0, 0.1});
  tests.addAxial({40e6, -5.0, 1.0, 0.0, 0.1});
  tests.addAxial({40e6, 1e4, 1.0, kNan, 0.1});
  tests.addAxial({40e6, 1e4, 1.0, 0.0, kNan});
  EXPECT_TRUE(tests.data(1.0).tests.empty());
}

}  // namespace
