// SPDX-License-Identifier: BSD-3-Clause
#include "variation/VariableProperty.h"

#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lamcraft {
namespace {

using testing::Each;
using testing::ElementsAre;

/// Value, minimum, maximum and the thirteen parameters, in their order.
std::vector<double> numbersOf(const VariableProperty& property) {
  std::vector<double> numbers{property.value(), property.min(), property.max()};
  for (const Distribution* const distribution : property.distributions()) {
    for (std::size_t i = 0; i < distribution->parameterCount(); ++i) {
      numbers.push_back(distribution->parameter(i));
    }
  }
  return numbers;
}

const VariationTable kFullTable{{{-1.0, -2.0},
                                 {3.0, 4.0},
                                 {5.0, 6.0, 7.0, 8.0},
                                 {9.0, 10.0},
                                 {11.0, 12.0, 13.0},
                                 {14.0, 15.0}}};

VariableProperty filled() {
  VariableProperty property;
  property.setName("NU12");
  property.setValue(0.5);
  property.fill(kFullTable);
  return property;
}

VariationTable tableWith(const std::size_t row, const std::size_t column, const double value) {
  VariationTable table{};
  table[row][column] = value;
  return table;
}

TEST(VariableProperty, StartsUnnamedAndWithZeros) {
  const VariableProperty property;
  EXPECT_EQ(property.name(), "");
  EXPECT_THAT(numbersOf(property), Each(0.0));
  EXPECT_FALSE(property.isVaried());
}

TEST(VariableProperty, HasTheFiveDistributionsInOrder) {
  std::vector<std::string> names;
  const VariableProperty property;
  for (const Distribution* const distribution : property.distributions()) {
    names.emplace_back(distribution->name());
  }
  EXPECT_THAT(names,
              ElementsAre("normal", "truncatednormal", "weibull2", "weibull3", "ext_i_large"));
}

TEST(VariableProperty, TakesEveryNumberFromATable) {
  VariableProperty property;
  property.setName("E11");
  property.setValue(0.5);
  property.fill(kFullTable);
  EXPECT_THAT(numbersOf(property),
              ElementsAre(0.5, -1, -2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15));
  EXPECT_EQ(property.name(), "E11");
}

TEST(VariableProperty, ClearsTheDistributionsWhenATableHasOnlyTheRange) {
  VariableProperty property = filled();
  property.fill(VariationTable{{{1.0, 2.0}}});
  EXPECT_THAT(numbersOf(property), ElementsAre(0.5, 1, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0));
}

TEST(VariableProperty, CopiesNumbersButNoName) {
  const VariableProperty original = filled();
  VariableProperty copy(original);
  EXPECT_EQ(copy.name(), "");
  EXPECT_EQ(numbersOf(copy), numbersOf(original));
  copy.scale(2.0);
  EXPECT_EQ(numbersOf(original), numbersOf(filled()));
  EXPECT_EQ(original.name(), "NU12");
}

TEST(VariableProperty, KeepsItsNameWhenItIsAssigned) {
  VariableProperty property;
  property.setName("E22");
  property = filled();
  EXPECT_EQ(property.name(), "E22");
  EXPECT_EQ(numbersOf(property), numbersOf(filled()));
}

TEST(VariableProperty, ClearsTheRangeWhenItsValueIsSet) {
  VariableProperty property = filled();
  property.setValue(0.25);
  EXPECT_THAT(numbersOf(property),
              ElementsAre(0.25, 0, 0, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15));
  EXPECT_TRUE(property.isVaried()) << "a spread is still positive";
  property.fill(VariationTable{{{1.0, 2.0}, {3.0, 0.0}}});
  EXPECT_TRUE(property.isVaried());
  property.setValue(0.25);
  EXPECT_FALSE(property.isVaried()) << "only a mean is left";
}

TEST(VariableProperty, KeepsItsScatterWhenAResultIsPublished) {
  VariableProperty property = filled();
  property.publish(0.25);
  EXPECT_THAT(numbersOf(property),
              ElementsAre(0.25, -1, -2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15));
}

TEST(VariableProperty, IsVariedByARangeWiderThanRounding) {
  const auto isVaried = [](const double min, const double max) {
    VariableProperty property;
    property.fill(VariationTable{{{min, max}}});
    return property.isVaried();
  };
  EXPECT_FALSE(isVaried(1.0, 1.0));
  EXPECT_FALSE(isVaried(1.0, 1.0 + 5e-14));
  EXPECT_TRUE(isVaried(1.0, 1.0 + 2e-13));
  EXPECT_TRUE(isVaried(1.0 + 2e-13, 1.0)) << "a range that is upside down is one";
  EXPECT_FALSE(isVaried(0.0, 9.99e-14));
  EXPECT_TRUE(isVaried(0.0, 1e-13)) << "not smaller than the limit";
}

TEST(VariableProperty, IsVariedByASpreadAndByNoOtherParameter) {
  const std::vector<std::vector<bool>> isSpread{{},
                                                {false, true},
                                                {false, true, false, false},
                                                {false, true},
                                                {false, true, false},
                                                {false, true}};
  for (std::size_t row = 1; row < isSpread.size(); ++row) {
    for (std::size_t column = 0; column < isSpread[row].size(); ++column) {
      VariableProperty property;
      property.fill(tableWith(row, column, 1e-300));
      EXPECT_EQ(property.isVaried(), isSpread[row][column]) << row << ", " << column;
      property.fill(tableWith(row, column, -1.0));
      EXPECT_FALSE(property.isVaried()) << row << ", " << column;
    }
  }
}

TEST(VariableProperty, ScalesEverythingButTheShapeParameters) {
  VariableProperty property = filled();
  property.scale(1000.0);
  EXPECT_THAT(numbersOf(property),
              ElementsAre(500,
                          -1000,
                          -2000,
                          3000,
                          4000,
                          5000,
                          6000,
                          7000,
                          8000,
                          9,
                          10000,
                          11,
                          12000,
                          13000,
                          14000,
                          15000));
  EXPECT_EQ(property.name(), "NU12");
}

TEST(VariableProperty, IsSmall) {
  // An environment of a woven material holds thousands.
  EXPECT_LE(sizeof(VariableProperty), 350U);
}

}  // namespace
}  // namespace lamcraft
