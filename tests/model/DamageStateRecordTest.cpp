// SPDX-License-Identifier: BSD-3-Clause
#include "model/DamageStateRecord.h"

#include <set>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

namespace lamcraft {
namespace {

std::vector<std::int32_t> numbersOf(const std::vector<DamageStateRecord>& states) {
  std::vector<std::int32_t> numbers;
  numbers.reserve(states.size());
  for (const DamageStateRecord& state : states) {
    numbers.push_back(state.state);
  }
  return numbers;
}

TEST(DamageStates, AreEighteenInOrder) {
  const std::vector<std::int32_t> expected{
      1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18};
  EXPECT_EQ(numbersOf(allDamageStates()), expected);
}

TEST(DamageStates, NameWhatHasFailed) {
  const auto states = allDamageStates();
  std::set<std::tuple<int, int, int>> seen;
  for (const DamageStateRecord& state : states) {
    EXPECT_EQ(state.state, 1 + state.pocketCode + 2 * state.fillCode + 6 * state.warpCode);
    EXPECT_TRUE(state.pocketCode == 0 || state.pocketCode == 1);
    EXPECT_TRUE(state.fillCode >= 0 && state.fillCode <= 2);
    EXPECT_TRUE(state.warpCode >= 0 && state.warpCode <= 2);
    seen.emplace(state.pocketCode, state.fillCode, state.warpCode);
  }
  EXPECT_EQ(seen.size(), 18U);
  EXPECT_EQ(states.front().fillCode, 0);
  EXPECT_EQ(states[11].state, 12);  // pocket 1, fill matrix and fiber, warp matrix
  EXPECT_EQ(states[11].pocketCode, 1);
  EXPECT_EQ(states[11].fillCode, 2);
  EXPECT_EQ(states[11].warpCode, 1);
}

TEST(DamageStates, ForFatigueAreThoseWithoutBrokenFibers) {
  const auto states = fatigueDamageStates();
  EXPECT_EQ(numbersOf(states), (std::vector<std::int32_t>{1, 2, 3, 4, 7, 8, 9, 10}));
  for (const DamageStateRecord& state : states) {
    EXPECT_EQ(state.state, 1 + state.pocketCode + 2 * state.fillCode + 6 * state.warpCode);
    EXPECT_LE(state.pocketCode, 1);
    EXPECT_LE(state.fillCode, 1);
    EXPECT_LE(state.warpCode, 1);
  }
}

TEST(DamageStates, StartWithZeros) {
  for (const DamageStateRecord& state : allDamageStates()) {
    EXPECT_EQ(state.sets[8][11], 0.0);
    EXPECT_EQ(state.unitCell[3].thermalStrain[5], 0.0);
    EXPECT_EQ(state.warpTow[1].thermalStrain[5], 0.0);
  }
}

// The fatigue fit is handed the record from its state number on.
TEST(DamageStateRecord, IsOneBlockThatStartsWithTheStateNumber) {
  const DamageStateRecord data;
  const auto* const start = reinterpret_cast<const char*>(&data);
  const auto offset = [&](const double* const value) {
    return reinterpret_cast<const char*>(value) - start;
  };
  EXPECT_EQ(reinterpret_cast<const char*>(&data.state), start);
  EXPECT_EQ(offset(data.sets[0].data()), 16);
  EXPECT_EQ(offset(data.unitCell[0].stress.data()), 16 + 9 * 12 * 8);
  EXPECT_EQ(offset(data.fillTow[0].stress.data()), 16 + (9 * 12 + 4 * 84) * 8);
  EXPECT_EQ(offset(data.warpTow[0].stress.data()), 16 + (9 * 12 + 6 * 84) * 8);
  EXPECT_EQ(offset(data.warpTow[1].thermalStrain.data() + 5), 16 + (9 * 12 + 8 * 84 - 1) * 8);
}

}  // namespace
}  // namespace lamcraft
