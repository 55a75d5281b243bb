// SPDX-License-Identifier: BSD-3-Clause
#include "report/LifeCurves.h"

#include <cmath>
#include <filesystem>

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace lamkit {
namespace {

namespace fs = std::filesystem;

/// A glass/epoxy ply with 62 tests, along and across, at three temperatures.
MaterialFolder glassPly() {
  return readFolder(
      (fs::path(LAMCRAFT_TEST_DATA) / "golden" / "examples" / "ge1-glass-epoxy" / "engine")
          .string());
}

TEST(LifeChart, HasASeriesForEachAngleAndRatio) {
  const LifeChart chart = lifeChart(glassPly(), 0);
  ASSERT_EQ(chart.series.size(), 2U);
  EXPECT_FALSE(chart.isRecomputed);
  EXPECT_EQ(chart.series[0].angle, 0.0);
  EXPECT_EQ(chart.series[1].angle, 90.0);
  EXPECT_EQ(chart.series[0].tests.size() + chart.series[1].tests.size(),
            glassPly().data.environments[0].snRecords.size());
}

TEST(LifeChart, GoesThroughTheTestsWithinTheirScatter) {
  for (const LifeSeries& series : lifeChart(glassPly(), 0).series) {
    ASSERT_TRUE(series.scatter);
    // Lives of one stress differ by a factor of two to five here.
    EXPECT_GT(*series.scatter, 0.1);
    EXPECT_LT(*series.scatter, 1.0);
  }
}

TEST(LifeChart, LivesFallWithStress) {
  for (const LifeSeries& series : lifeChart(glassPly(), 0).series) {
    ASSERT_FALSE(series.curve.empty());
    for (std::size_t i = 1; i < series.curve.size(); ++i) {
      EXPECT_GT(series.curve[i].stress, series.curve[i - 1].stress);
      EXPECT_LT(series.curve[i].life, series.curve[i - 1].life);
    }
  }
}

TEST(LifeChart, HasTestsWithoutACurveWhereNothingWasFitted) {
  MaterialFolder folder = glassPly();
  folder.fatigueData.reset();
  for (const LifeSeries& series : lifeChart(folder, 0).series) {
    EXPECT_FALSE(series.tests.empty());
    EXPECT_TRUE(series.curve.empty());
    EXPECT_FALSE(series.scatter);
  }
}

TEST(LifeChart, IsEmptyWithoutTests) {
  MaterialFolder folder = glassPly();
  folder.fatigueData.reset();
  folder.data.environments[0].snRecords.clear();
  EXPECT_TRUE(lifeChart(folder, 0).series.empty());
}

}  // namespace
}  // namespace lamkit
