// SPDX-License-Identifier: BSD-3-Clause
#include "weave/geometry/WeaveGeometry.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "support/ReferenceData.h"

namespace kx {
namespace {

WeaveGeometry weave(const int harness, const double fill, const double warp, const double h) {
  return {*InterlacingPattern::ofHarness(harness), fill, warp, h};
}

struct Fractions {
  double fill;
  double warp;
};

// By the midpoint rule, exact to the square of the step.
Fractions integrated(const WeaveGeometry& geometry, const int perTow) {
  const int n = geometry.pattern().tows() * perTow;
  Fractions sum{0.0, 0.0};
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      const WeaveColumn column = geometry.column((i + 0.5) / perTow, (j + 0.5) / perTow);
      sum.fill += column.fill.length() / geometry.thickness() / n / n;
      sum.warp += column.warp.length() / geometry.thickness() / n / n;
    }
  }
  return sum;
}

TEST(WeaveGeometry, MeetsTheVolumeFractions) {
  for (const int harness : {1, 4, 5, 8}) {
    for (const Fractions f : {Fractions{0.4, 0.4}, {0.25, 0.25}, {0.5, 0.2}, {0.05, 0.3}}) {
      const Fractions found = integrated(weave(harness, f.fill, f.warp, 0.12), 100);
      EXPECT_NEAR(found.fill, f.fill, 2e-4) << harness;
      EXPECT_NEAR(found.warp, f.warp, 2e-4) << harness;
    }
  }
}

TEST(WeaveGeometry, HasTheDimensionsOfTheReferenceCells) {
  for (const auto& cell : test::referenceCases("computed.json", "weave")) {
    const WeaveGeometry geometry = weave(cell.at("harness"),
                                         cell.at("fill_fraction"),
                                         cell.at("warp_fraction"),
                                         cell.at("thickness_over_pitch"));
    EXPECT_NEAR(geometry.crossingLength(), cell.at("u_over_pitch").get<double>(), 1e-12);
    EXPECT_NEAR(geometry.towWidth(), cell.at("width_over_pitch").get<double>(), 1e-12);
    EXPECT_NEAR(geometry.fillThickness(), cell.at("fill_thickness").get<double>(), 1e-12);
    EXPECT_NEAR(geometry.warpThickness(), cell.at("warp_thickness").get<double>(), 1e-12);
  }
}

TEST(WeaveGeometry, TowsTouchButNeverInterpenetrateNorLeaveThePly) {
  const double rounding = 1e-14;
  for (const int harness : {1, 4, 5, 8}) {
    for (const Fractions f : {Fractions{0.4, 0.4}, {0.25, 0.25}, {0.55, 0.35}}) {
      const WeaveGeometry geometry = weave(harness, f.fill, f.warp, 0.2);
      const double half = geometry.thickness() / 2;
      double closest = 1.0;
      const int n = geometry.pattern().tows() * 20;
      for (int i = 0; i <= n; ++i) {
        for (int j = 0; j <= n; ++j) {
          const WeaveColumn c = geometry.column(std::min(i / 20.0, n / 20.0 - 1e-9),
                                                std::min(j / 20.0, n / 20.0 - 1e-9));
          const double gap = std::max(c.fill.lower - c.warp.upper, c.warp.lower - c.fill.upper);
          EXPECT_GE(gap, -rounding);
          closest = std::min(closest, gap);
          EXPECT_LE(std::max(c.fill.upper, c.warp.upper), half + rounding);
          EXPECT_GE(std::min(c.fill.lower, c.warp.lower), -half - rounding);
        }
      }
      EXPECT_NEAR(closest, 0.0, rounding);
    }
  }
}

TEST(WeaveGeometry, SlopeIsTheDerivativeOfTheCentreline) {
  const WeaveGeometry geometry = weave(5, 0.45, 0.35, 0.16);
  const double step = 1e-6;
  for (double x = 0.05; x < 4.95; x += 0.0517) {
    for (double y = 0.05; y < 4.95; y += 0.31) {
      const auto middle = [](const Interval& tow) { return (tow.lower + tow.upper) / 2; };
      const double alongFill =
          (middle(geometry.column(x + step, y).fill) - middle(geometry.column(x - step, y).fill)) /
          (2 * step);
      const double alongWarp =
          (middle(geometry.column(x, y + step).warp) - middle(geometry.column(x, y - step).warp)) /
          (2 * step);
      // The centreline has a bend in curvature where a crossing begins: first order there.
      EXPECT_NEAR(geometry.column(x, y).fillSlope, alongFill, 1e-5);
      EXPECT_NEAR(geometry.column(x, y).warpSlope, alongWarp, 1e-5);
    }
  }
}

TEST(WeaveGeometry, ScalesTowsThatWouldLeaveNoPocket) {
  const WeaveGeometry geometry = weave(1, 0.6, 0.4, 0.12);
  EXPECT_NEAR(geometry.fillFraction(), 0.57, 1e-12);
  EXPECT_NEAR(geometry.warpFraction(), 0.38, 1e-12);
}

TEST(WeaveGeometry, LimitsTheInclinationOfTheTows) {
  for (const Fractions f : {Fractions{0.4, 0.4}, {0.6, 0.3}, {0.2, 0.2}}) {
    const WeaveGeometry geometry = weave(1, f.fill, f.warp, 3.0);
    double steepest = 0.0;
    for (double x = 0.0; x < 2.0; x += 0.01) {
      const WeaveColumn along = geometry.column(x, 0.5);
      const WeaveColumn across = geometry.column(0.5, x);
      steepest = std::max({steepest, std::abs(along.fillSlope), std::abs(across.warpSlope)});
    }
    EXPECT_NEAR(std::atan(steepest) * 180.0 / std::acos(-1.0), 25.0, 0.05);
  }
}

}  // namespace
}  // namespace kx
