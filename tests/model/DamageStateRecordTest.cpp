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
    numbers.push_back(state.data.state);
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
  for (const auto& [data, properties] : states) {
    EXPECT_EQ(data.state, 1 + data.pocketCode + 2 * data.fillCode + 6 * data.warpCode);
    EXPECT_TRUE(data.pocketCode == 0 || data.pocketCode == 1);
    EXPECT_TRUE(data.fillCode >= 0 && data.fillCode <= 2);
    EXPECT_TRUE(data.warpCode >= 0 && data.warpCode <= 2);
    seen.emplace(data.pocketCode, data.fillCode, data.warpCode);
  }
  EXPECT_EQ(seen.size(), 18U);
  EXPECT_EQ(states.front().data.fillCode, 0);
  EXPECT_EQ(states[11].data.state, 12);  // pocket 1, fill matrix and fiber, warp matrix
  EXPECT_EQ(states[11].data.pocketCode, 1);
  EXPECT_EQ(states[11].data.fillCode, 2);
  EXPECT_EQ(states[11].data.warpCode, 1);
}

TEST(DamageStates, ForFatigueAreThoseWithoutBrokenFibers) {
  const auto states = fatigueDamageStates();
  EXPECT_EQ(numbersOf(states), (std::vector<std::int32_t>{1, 2, 3, 4, 7, 8, 9, 10}));
  for (const auto& [data, properties] : states) {
    EXPECT_EQ(data.state, 1 + data.pocketCode + 2 * data.fillCode + 6 * data.warpCode);
    EXPECT_LE(data.pocketCode, 1);
    EXPECT_LE(data.fillCode, 1);
    EXPECT_LE(data.warpCode, 1);
  }
}

TEST(DamageStates, StartWithZeros) {
  for (const auto& [data, properties] : allDamageStates()) {
    EXPECT_EQ(data.sets[8][11], 0.0);
    EXPECT_EQ(data.unitCell[3].thermalStrain[5], 0.0);
    EXPECT_EQ(data.warpTow[1].thermalStrain[5], 0.0);
    EXPECT_EQ(properties[0].symmetry, Symmetry::unset);
  }
}

// The fatigue fit is handed the record from its state number on.
TEST(DamageStateData, IsOneBlockThatStartsWithTheStateNumber) {
  const DamageStateData data;
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

TEST(DamageStateRecord, PublishesEverySetAsItIs) {
  DamageStateRecord record;
  for (std::size_t set = 0; set < kDamageSetCount; ++set) {
    for (std::size_t i = 0; i < kPropertyCount; ++i) {
      record.data.sets[set][i] = 100.0 * static_cast<double>(set) + static_cast<double>(i);
    }
  }
  record.publish();
  for (std::size_t set = 0; set < kDamageSetCount; ++set) {
    for (std::size_t i = 0; i < kPropertyCount; ++i) {
      const double expected = 100.0 * static_cast<double>(set) + static_cast<double>(i);
      EXPECT_EQ(record.properties[set].variables()[i].value(), expected);
    }
  }
  EXPECT_EQ(record.property(DamageSet::fillFiber).variables()[0].value(), 500.0);
  EXPECT_EQ(record.set(DamageSet::warpMatrix)[11], 811.0);
}

}  // namespace
}  // namespace lamcraft
