#include "abqinp/DataRow.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace abqinp {
namespace {

using testing::ElementsAre;

std::vector<std::string> valuesOf(const std::string_view line) {
  DataRow row(line);
  std::vector<std::string> values;
  while (const auto value = row.value(values.size())) {
    values.emplace_back(*value);
  }
  return values;
}

TEST(DataRow, CutsAtEveryComma) {
  EXPECT_THAT(valuesOf("1,2"), ElementsAre("1", "2"));
  EXPECT_THAT(valuesOf("1,2,"), ElementsAre("1", "2", ""));
  EXPECT_THAT(valuesOf(",,1"), ElementsAre("", "", "1"));
  EXPECT_THAT(valuesOf(","), ElementsAre("", ""));
  EXPECT_THAT(valuesOf("\"a,b\""), ElementsAre("\"a", "b\""));
}

TEST(DataRow, FindsItsValuesInAnyOrder) {
  DataRow row("a,b,c,d");
  for (const std::size_t column : {2U, 0U, 3U, 3U, 1U, 9U, 2U, 4U, 0U}) {
    const auto value = row.value(column);
    ASSERT_EQ(value.has_value(), column < 4) << column;
    EXPECT_EQ(value.value_or(""), column < 4 ? std::string(1, "abcd"[column]) : "") << column;
  }
}

TEST(DataRow, HasNoValuesInABlankLine) {
  EXPECT_THAT(valuesOf(""), ElementsAre());
  EXPECT_EQ(DataRow().value(0), std::nullopt);
}

TEST(DataRow, ReadsNumbers) {
  DataRow row("-1.5E3,,7");
  EXPECT_EQ(row.doubleValue(0, 9.0), -1500.0);
  EXPECT_EQ(row.doubleValue(1, 9.0), 9.0) << "an empty value reads as the default";
  EXPECT_EQ(row.intValue(2, 9), 7);
  EXPECT_EQ(row.intValue(3, 9), 9) << "so does a column that is missing";
}

TEST(DataRow, LooksOnlyAtTheValueThatIsAskedFor) {
  DataRow row("1,X");
  EXPECT_EQ(row.doubleValue(0, 0.0), 1.0);
  EXPECT_THROW(static_cast<void>(row.doubleValue(1, 0.0)), std::invalid_argument);
}

}  // namespace
}  // namespace abqinp
