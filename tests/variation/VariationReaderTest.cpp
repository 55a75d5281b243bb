// SPDX-License-Identifier: BSD-3-Clause
#include "variation/VariationReader.h"

#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace lamcraft {
namespace {

abqinp::Keyword variationOf(const std::string& prop, const std::vector<std::string>& lines) {
  abqinp::Keyword keyword = abqinp::Keyword::fromLine("*VARIATION,PROP=" + prop);
  for (const std::string& line : lines) {
    keyword.addDataLine(line);
  }
  return keyword;
}

TEST(VariationReader, FillsThePropertyThatPropNames) {
  VariableProperty e11;
  VariableProperty e22;
  e22.setValue(9.0);
  e22.setName("E22");
  const VariationReader reader({{"E11", {&e11}}, {"E22", {&e22}}});
  reader.read(variationOf("E22", {"1,2", "3,4", "5,6,7,8", "9,10", "11,12,13", "14,15"}));
  EXPECT_FALSE(e11.isVaried());
  EXPECT_EQ(e22.value(), 9.0);
  EXPECT_EQ(e22.name(), "E22");
  EXPECT_EQ(e22.min(), 1.0);
  EXPECT_EQ(e22.max(), 2.0);
  double expected = 3.0;
  for (const Distribution* const distribution : e22.distributions()) {
    for (std::size_t i = 0; i < distribution->parameterCount(); ++i) {
      EXPECT_EQ(distribution->parameter(i), expected++);
    }
  }
  EXPECT_EQ(expected, 16.0);
}

TEST(VariationReader, FillsEveryPropertyOfARowAlike) {
  VariableProperty fill;
  VariableProperty warp;
  VariationReader({{"FVF", {&fill, &warp}}}).read(variationOf("FVF", {"0.5,0.6", "0.55,0.02"}));
  EXPECT_EQ(fill.max(), 0.6);
  EXPECT_EQ(warp.max(), 0.6);
  EXPECT_EQ(fill.distributions()[0]->parameter(1), 0.02);
  EXPECT_EQ(warp.distributions()[0]->parameter(1), 0.02);
}

TEST(VariationReader, TakesTheFirstRowOfAName) {
  VariableProperty first;
  VariableProperty second;
  VariationReader({{"A", {&first}}, {"A", {&second}}}).read(variationOf("A", {"1,2"}));
  EXPECT_TRUE(first.isVaried());
  EXPECT_FALSE(second.isVaried());
}

TEST(VariationReader, ComparesTheWholeNameAndItsCase) {
  VariableProperty property;
  const VariationReader reader({{"E11", {&property}}});
  for (const std::string prop : {"E1", "E111", "\"e11\"", ""}) {
    EXPECT_THROW(reader.read(variationOf(prop, {"1,2"})), std::invalid_argument) << prop;
  }
  EXPECT_FALSE(property.isVaried());
  reader.read(variationOf("\"E11\"", {"1,2"}));
  EXPECT_TRUE(property.isVaried());
}

TEST(VariationReader, NamesThePropertyThatTheGroupDoesNotHave) {
  VariableProperty property;
  bool followed = false;
  const VariationReader reader({{"T1", {&property}}}, [&] { followed = true; });
  try {
    reader.read(variationOf("S23", {"1,2"}));
    FAIL() << "there is no such property";
  } catch (const std::invalid_argument& error) {
    EXPECT_STREQ(error.what(), "Invalid variation property:S23");
  }
  EXPECT_FALSE(property.isVaried());
  EXPECT_FALSE(followed);
}

TEST(VariationReader, NeedsTheParameterProp) {
  const VariationReader reader({});
  try {
    reader.read(abqinp::Keyword::fromLine("*VARIATION"));
    FAIL() << "there is no PROP";
  } catch (const std::out_of_range& error) {
    EXPECT_STREQ(error.what(), "VARIATION does not have a parameter named PROP");
  }
}

TEST(VariationReader, FollowsUpAfterTheFill) {
  VariableProperty property;
  double maxAtFollowUp = 0.0;
  const VariationReader reader({{"A", {&property}}}, [&] { maxAtFollowUp = property.max(); });
  reader.read(variationOf("A", {"1,2"}));
  EXPECT_EQ(maxAtFollowUp, 2.0);
}

TEST(VariationReader, ReadsMissingAndEmptyValuesAsZero) {
  VariableProperty property;
  const VariationReader reader({{"A", {&property}}});
  reader.read(variationOf("A", {"1,2", "3,4", "5,6,7,8", "9,10", "11,12,13", "14,15"}));
  reader.read(variationOf("A", {"1,2"}));
  EXPECT_EQ(property.min(), 1.0);
  EXPECT_EQ(property.max(), 2.0);
  for (const Distribution* const distribution : property.distributions()) {
    for (std::size_t i = 0; i < distribution->parameterCount(); ++i) {
      EXPECT_EQ(distribution->parameter(i), 0.0);
    }
  }
  reader.read(variationOf("A", {",2", "", "5,,7"}));
  EXPECT_EQ(property.min(), 0.0);
  EXPECT_EQ(property.distributions()[1]->parameter(0), 5.0);
  EXPECT_EQ(property.distributions()[1]->parameter(1), 0.0);
  EXPECT_EQ(property.distributions()[1]->parameter(2), 7.0);
}

TEST(VariationReader, LooksAtNoValueBeyondTheTable) {
  VariableProperty property;
  const VariationReader reader({{"A", {&property}}});
  EXPECT_NO_THROW(reader.read(variationOf("A", {"1,2,NOTE", "", "", "", "", "", "NOTE"})));
  EXPECT_EQ(property.max(), 2.0);
}

TEST(VariationReader, ChangesNothingWhenANumberCannotBeRead) {
  VariableProperty property;
  const VariationReader reader({{"A", {&property}}});
  EXPECT_THROW(reader.read(variationOf("A", {"1,2", "3,X"})), std::invalid_argument);
  EXPECT_FALSE(property.isVaried());
}

}  // namespace
}  // namespace lamcraft
