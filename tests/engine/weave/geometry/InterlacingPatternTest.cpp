// SPDX-License-Identifier: BSD-3-Clause
#include "weave/geometry/InterlacingPattern.h"

#include <gtest/gtest.h>

namespace kx {
namespace {

TEST(InterlacingPattern, PlainWeaveAlternatesForEveryHarnessBelowTwo) {
  for (const int harness : {-3, 0, 1}) {
    const auto plain = InterlacingPattern::ofHarness(harness);
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->tows(), 2);
    EXPECT_EQ(plain->side(0, 0), 1);
    EXPECT_EQ(plain->side(0, 1), -1);
    EXPECT_EQ(plain->side(3, -1), plain->side(1, 1));
  }
}

TEST(InterlacingPattern, EveryTowOfASatinCrossesOverOnceInARepeat) {
  for (const int harness : {4, 5, 8}) {
    const auto satin = InterlacingPattern::ofHarness(harness);
    ASSERT_TRUE(satin);
    for (int a = 0; a < harness; ++a) {
      int underWarp = 0;
      int overFill = 0;
      for (int b = 0; b < harness; ++b) {
        underWarp += satin->side(a, b) < 0 ? 1 : 0;
        overFill += satin->side(b, a) < 0 ? 1 : 0;
      }
      EXPECT_EQ(underWarp, 1) << harness;
      EXPECT_EQ(overFill, 1) << harness;
    }
  }
}

TEST(InterlacingPattern, BindingPointsOfTheRegularSatinsDoNotTouch) {
  for (const int harness : {5, 8}) {
    const auto satin = InterlacingPattern::ofHarness(harness);
    for (int warp = 0; warp < harness; ++warp) {
      for (int fill = 0; fill < harness; ++fill) {
        if (satin->side(warp, fill) > 0) {
          continue;
        }
        for (const int step : {-1, 0, 1}) {
          EXPECT_EQ(satin->side(warp + 1, fill + step), 1);
        }
      }
    }
  }
}

TEST(InterlacingPattern, RegularWeavesStepFromTowToTow) {
  EXPECT_EQ(InterlacingPattern::ofHarness(1)->step(), 1);
  EXPECT_EQ(InterlacingPattern::ofHarness(4)->step(), std::nullopt);
  EXPECT_EQ(InterlacingPattern::ofHarness(5)->step(), 2);
  EXPECT_EQ(InterlacingPattern::ofHarness(8)->step(), 3);
}

TEST(InterlacingPattern, UnknownSatinsHaveNoPattern) {
  for (const int harness : {2, 3, 6, 7, 9, 1000}) {
    EXPECT_FALSE(InterlacingPattern::ofHarness(harness)) << harness;
  }
}

TEST(InterlacingPattern, ExchangeOfFillAndWarpKeepsEveryCrossing) {
  for (const int harness : {1, 4, 5, 8}) {
    const auto pattern = InterlacingPattern::ofHarness(harness);
    const auto exchange = pattern->exchange();
    for (int warp = 0; warp < pattern->tows(); ++warp) {
      for (int fill = 0; fill < pattern->tows(); ++fill) {
        EXPECT_EQ(
            pattern->side(fill + exchange.warpShift, exchange.mirror * warp + exchange.fillShift),
            pattern->side(warp, fill));
      }
    }
  }
}

}  // namespace
}  // namespace kx
