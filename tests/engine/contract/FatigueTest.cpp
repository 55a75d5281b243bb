// SPDX-License-Identifier: BSD-3-Clause
#include <array>
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "contract/Contract.h"
#include "fatigue/PlainWeaveFatigue.h"

namespace {

/// The intact weave; of its blocks, what the fit looks at. Slots of the unit cell are fill, pocket,
/// warp and interface, those of a tow fiber and matrix.
struct NotedState : kx::test::FatDcmpProps {
  NotedState() {
    for (auto& set : sets) {
      set.fill(0.0);
    }
    for (auto* tow : {&fillBlock, &warpBlock}) {
      tow->fill(0.0);
      stress(*tow, KX_TOW_MATRIX, 0, 0) = 0.1;
      stress(*tow, KX_TOW_MATRIX, 1, 1) = 0.8;
    }
    unitCellBlock.fill(0.0);
    stress(unitCellBlock, KX_CELL_FILL, 0, 0) = 1.6;
    stress(unitCellBlock, KX_CELL_WARP, 0, 0) = 0.6;
    stress(unitCellBlock, KX_CELL_WARP, 1, 1) = 1.6;
    record = {KX_STATE_INTACT, KX_INTACT, KX_INTACT, KX_INTACT};
  }

 private:
  /// The stress concentration comes first in a slot, by columns.
  template <typename Block>
  static double& stress(Block& block, std::size_t slot, std::size_t row, std::size_t column) {
    return block[KX_SLOT_LENGTH * slot + KX_SLOT_STRESS + 6 * column + row];
  }
};

struct FatigueCall : kx::test::FatiguePwOpti {
  FatigueCall() {
    sn = {{320e6, 1e2, 5, 0, 0.1},
          {280e6, 1e3, 5, 0, 0.1},
          {240e6, 1e4, 5, 0, 0.1},
          {200e6, 1e5, 5, 0, 0.1},
          {160e6, 1e6, 5, 0, 0.1}};
    snCount = static_cast<std::int32_t>(sn.size());
    temperature = 296.15;
    strengths = {180e6, 400e6, 170e6, 380e6, 45e6, 90e6};
    towFractions = {0.4, 0.4};
    fiberFractionInTow = 0.7;
  }
};

TEST(FatiguePwOpti, FitsTheNotedIntactWeave) {
  NotedState().run();
  FatigueCall call;
  call.run();
  // knee and ultimate strength are what the ramp gives through the matrix stress in the tows
  const auto strength = [&](std::size_t row) {
    const auto& r = call.rows[row];
    return kx::rampStrength({r[0], r[1], r[2], r[3], r[4], r[5]}, call.temperature);
  };
  EXPECT_NEAR(strength(0) / (400e6 * 1.6 * 0.1), 1.0, 0.10);
  EXPECT_NEAR(strength(1) / (180e6 * 0.6 * 0.8), 1.0, 1e-9);
  for (std::size_t row : {2U, 3U}) {  // standard errors of what is fitted
    EXPECT_GT(call.rows[row][0], 0.0);
    EXPECT_GT(call.rows[row][2], 0.0);
    EXPECT_EQ(call.rows[row][4], 0.0);
    EXPECT_LT(call.rows[row][0], call.rows[row - 2][0]);
  }
  EXPECT_EQ(call.errors[3], kx::test::kUntouched);
  EXPECT_GT(call.errors[4], call.errors[5]);
  EXPECT_LT(call.errors[5], 0.2);
  EXPECT_GT(call.iterations.value(), 0);
}

TEST(FatiguePwOpti, NoteServesOneFit) {
  NotedState().run();
  FatigueCall first, second;
  first.run();
  second.run();
  EXPECT_GT(first.rows[0][0], 0.0);
  EXPECT_EQ(second.rows[0], (std::array<double, 6>{}));
  EXPECT_EQ(second.iterations.value(), 0);
  EXPECT_GE(second.errors[5], second.errors[4]);
}

TEST(FatiguePwOpti, DamagedStatesDoNotCount) {
  NotedState intact;
  intact.run();
  NotedState damaged;
  damaged.record[0] = 2;
  for (double& value : damaged.unitCellBlock) {
    value = 0.5;
  }
  damaged.run();
  FatigueCall with;
  with.run();
  intact.run();
  FatigueCall without;
  without.run();
  EXPECT_EQ(with.rows, without.rows);
}

TEST(FatiguePwOpti, AnotherWeaveDropsTheNote) {
  NotedState().run();
  kx::test::WeaveOptimization other;
  other.weave.towFractions = {0.0, 0.0};
  for (auto* constants : {&other.lamina, &other.fiber, &other.matrix}) {
    constants->fill(0.0);
  }
  other.run();
  FatigueCall call;
  call.run();
  EXPECT_EQ(call.rows[0][0], 0.0);
}

TEST(FatiguePwOpti, AbsurdDecompositionsAndCountsGiveFiniteRows) {
  const double absurd[] = {0.0,
                           -1.0,
                           1e300,
                           std::numeric_limits<double>::quiet_NaN(),
                           std::numeric_limits<double>::infinity()};
  for (const double value : absurd) {
    for (const std::int32_t count : {5, 0, -2, std::numeric_limits<std::int32_t>::max()}) {
      NotedState state;
      state.unitCellBlock.fill(value);
      state.fillBlock.fill(value);
      state.warpBlock.fill(value);
      state.run();
      FatigueCall call;
      call.snCount = count;
      call.run();
      for (const auto& row : call.rows) {
        for (const double number : row) {
          EXPECT_TRUE(std::isfinite(number)) << value;
        }
      }
      EXPECT_TRUE(std::isfinite(call.errors[4] + call.errors[5]));
    }
  }
}

}  // namespace
