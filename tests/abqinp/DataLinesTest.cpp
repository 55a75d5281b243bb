#include "abqinp/DataLines.h"

#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace abqinp {
namespace {

using testing::ElementsAre;

DataLines linesOf(const std::vector<std::string>& lines) {
  DataLines data;
  for (const std::string& line : lines) {
    data.add(line);
  }
  return data;
}

std::vector<std::string> valuesOf(const std::string& line) {
  const DataLines data = linesOf({"0", line, "9"});
  std::vector<std::string> values;
  while (const auto value = data.value(1, values.size())) {
    values.emplace_back(*value);
  }
  return values;
}

TEST(DataLines, CutsAtEveryComma) {
  EXPECT_THAT(valuesOf("1,2"), ElementsAre("1", "2"));
  EXPECT_THAT(valuesOf("1,2,"), ElementsAre("1", "2", ""));
  EXPECT_THAT(valuesOf(",,1"), ElementsAre("", "", "1"));
  EXPECT_THAT(valuesOf(","), ElementsAre("", ""));
  EXPECT_THAT(valuesOf("\"a,b\""), ElementsAre("\"a", "b\""));
}

TEST(DataLines, HasNoValuesInABlankLine) {
  EXPECT_THAT(valuesOf(""), ElementsAre());
}

TEST(DataLines, FindsEveryLine) {
  DataLines data;
  for (int i = 0; i < 100; ++i) {
    data.add(i % 7 == 0 ? "" : std::to_string(i) + ",X");
  }
  ASSERT_EQ(data.count(), 100U);
  for (std::size_t i = 0; i < 100; ++i) {
    EXPECT_EQ(data.line(i), i % 7 == 0 ? "" : std::to_string(i) + ",X");
  }
}

TEST(DataLines, RefusesALineThatDoesNotExist) {
  const DataLines data = linesOf({"1"});
  EXPECT_EQ(data.value(1, 0), std::nullopt);
  try {
    static_cast<void>(data.line(1));
    FAIL() << "there is no second line";
  } catch (const std::out_of_range& error) {
    EXPECT_STREQ(error.what(), "Requested line does not exist");
  }
}

TEST(DataLines, DropsBlankLinesAtTheEndOnly) {
  DataLines data = linesOf({"", "1", "", "", "2", "", "", "", "", "", "", "", "", ""});
  data.dropTrailingBlankLines();
  ASSERT_EQ(data.count(), 5U);
  EXPECT_EQ(data.line(0), "");
  EXPECT_EQ(data.line(3), "");
  EXPECT_EQ(data.line(4), "2");
  data.dropTrailingBlankLines();
  EXPECT_EQ(data.count(), 5U);
  data.add("3");
  EXPECT_EQ(data.line(5), "3");
}

TEST(DataLines, DropsEverythingWhenAllLinesAreBlank) {
  DataLines data = linesOf({"", "", ""});
  data.dropTrailingBlankLines();
  EXPECT_EQ(data.count(), 0U);
  DataLines none;
  none.dropTrailingBlankLines();
  EXPECT_EQ(none.count(), 0U);
}

TEST(DataLines, KeepsALineOfEmptyValues) {
  DataLines data = linesOf({"1", ","});
  data.dropTrailingBlankLines();
  EXPECT_EQ(data.count(), 2U);
}

TEST(DataLines, WritesABlankAfterEachComma) {
  std::ostringstream out;
  linesOf({"1,2,", "", ",", "3"}).write(out);
  EXPECT_EQ(out.str(), "1, 2, \n\n, \n3\n");
}

TEST(DataLines, WritesLinesOfAnyLength) {
  const std::string line = std::string(50000, ',') + std::string(50000, 'x');
  std::string expected;
  for (int i = 0; i < 50000; ++i) {
    expected += ", ";
  }
  expected += std::string(50000, 'x') + "\n";
  std::ostringstream out;
  linesOf({line}).write(out);
  EXPECT_EQ(out.str(), expected);
}

}  // namespace
}  // namespace abqinp
