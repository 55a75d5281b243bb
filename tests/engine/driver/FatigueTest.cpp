#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "driver/Contract.h"
#include "fatigue/PlainWeaveFatigue.h"

namespace {

using kx::test::SnRow;

/// The arrays that a damage state brings: unit cell (fill, pocket, warp, interface) and tows
/// (fiber, matrix), each slot a stress concentration of 36 numbers by columns, then the rest.
struct NotedState {
  struct Record {
    std::int32_t number;
    std::int32_t codes[3];
  } record{1, {0, 0, 0}};
  kx::test::Twelve set{};
  std::vector<double> unitCell = std::vector<double>(4 * 84);
  std::vector<double> fill = std::vector<double>(2 * 84);
  std::vector<double> warp = std::vector<double>(2 * 84);

  NotedState() {
    const auto entry = [](std::vector<double>& block,
                          std::size_t slot,
                          std::size_t row,
                          std::size_t column) -> double& {
      return block[84 * slot + 6 * column + row];
    };
    entry(unitCell, 0, 0, 0) = 1.6;
    entry(unitCell, 2, 0, 0) = 0.6;
    entry(unitCell, 2, 1, 1) = 1.6;
    for (auto* tow : {&fill, &warp}) {
      entry(*tow, 1, 0, 0) = 0.1;
      entry(*tow, 1, 1, 1) = 0.8;
    }
  }
  void note() const {
    FAT_DCMP_PROPS(set.data(),
                   set.data(),
                   set.data(),
                   set.data(),
                   set.data(),
                   set.data(),
                   set.data(),
                   set.data(),
                   unitCell.data(),
                   fill.data(),
                   warp.data(),
                   &record);
  }
};

struct FatigueCall {
  std::array<std::array<double, 6>, 4> rows{};
  std::vector<SnRow> sn{{320e6, 1e2, 5, 0, 0.1},
                        {280e6, 1e3, 5, 0, 0.1},
                        {240e6, 1e4, 5, 0, 0.1},
                        {200e6, 1e5, 5, 0, 0.1},
                        {160e6, 1e6, 5, 0, 0.1}};
  double temperature = 296.15;
  std::array<double, 6> strengths{180e6, 400e6, 170e6, 380e6, 45e6, 90e6};
  std::array<double, 2> tows{0.4, 0.4};
  double fiberFraction = 0.7;
  std::array<double, 6> errors{-7, -7, -7, -7, -7, -7};
  std::int32_t iterations = -7;

  void run() { run(static_cast<std::int32_t>(sn.size())); }
  void run(std::int32_t count) {
    FATIGUE_PW_OPTI(rows[0].data(),
                    rows[1].data(),
                    rows[2].data(),
                    rows[3].data(),
                    &count,
                    sn.data()->data(),
                    &temperature,
                    strengths.data(),
                    tows.data(),
                    &fiberFraction,
                    errors.data(),
                    &iterations);
  }
};

TEST(FatiguePwOpti, FitsTheNotedIntactWeave) {
  NotedState().note();
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
  EXPECT_EQ(call.errors[3], -7);
  EXPECT_GT(call.errors[4], call.errors[5]);
  EXPECT_LT(call.errors[5], 0.2);
  EXPECT_GT(call.iterations, 0);
}

TEST(FatiguePwOpti, NoteServesOneFit) {
  NotedState().note();
  FatigueCall first, second;
  first.run();
  second.rows[0].fill(3.0);
  second.run();
  EXPECT_GT(first.rows[0][0], 0.0);
  EXPECT_EQ(second.rows[0], (std::array<double, 6>{}));
  EXPECT_EQ(second.iterations, 0);
  EXPECT_GE(second.errors[5], second.errors[4]);
}

TEST(FatiguePwOpti, DamagedStatesDoNotCount) {
  NotedState intact;
  intact.note();
  NotedState damaged;
  damaged.record.number = 2;
  for (double& value : damaged.unitCell) {
    value = 0.5;
  }
  damaged.note();
  FatigueCall with;
  with.run();
  intact.note();
  FatigueCall without;
  without.run();
  EXPECT_EQ(with.rows, without.rows);
}

TEST(FatiguePwOpti, AnotherWeaveDropsTheNote) {
  NotedState().note();
  const std::int32_t harness = 1, zero = 0;
  std::array<double, 6> errors{};
  std::array<std::int32_t, 3> iterations{};
  kx::test::Twelve set{};
  const double fractions[] = {0.0, 0.0};
  WEAVE_OPTIMIZATION(&harness,
                     fractions,
                     fractions,
                     set.data(),
                     set.data(),
                     set.data(),
                     errors.data(),
                     iterations.data(),
                     "DUMB",
                     "DUMB",
                     "DUMB",
                     &zero,
                     &zero);
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
      for (auto* block : {&state.unitCell, &state.fill, &state.warp}) {
        block->assign(block->size(), value);
      }
      state.note();
      FatigueCall call;
      call.run(count);
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
