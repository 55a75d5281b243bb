#include "abqinp/DataLines.h"

#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace abqinp {
namespace {

DataLines linesOf(const std::vector<std::string>& lines) {
  DataLines data;
  for (const std::string& line : lines) {
    data.add(line);
  }
  return data;
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
  EXPECT_EQ(data.row(0).value(0), "1");
  EXPECT_EQ(data.row(1).value(0), std::nullopt);
  try {
    static_cast<void>(data.line(1));
    FAIL() << "there is no second line";
  } catch (const std::out_of_range& error) {
    EXPECT_STREQ(error.what(), "Requested line does not exist");
  }
}

TEST(DataLines, SharesThePartOfAText) {
  const auto text = std::make_shared<std::string>("0\n1,2\n\n3\n4\n");
  const DataLines data(text, 2, 9);
  ASSERT_EQ(data.count(), 3U);
  EXPECT_EQ(data.line(0), "1,2");
  EXPECT_EQ(data.line(1), "");
  EXPECT_EQ(data.line(2), "3");
  EXPECT_EQ(data.line(0).data(), text->data() + 2);
  EXPECT_EQ(DataLines(text, 9, 9).count(), 0U);
}

TEST(DataLines, OutlivesTheOwnerOfItsText) {
  auto text = std::make_shared<std::string>("1\n");
  const DataLines data(text, 0, 2);
  text.reset();
  EXPECT_EQ(data.line(0), "1");
}

TEST(DataLines, CopiesASharedTextWhenALineIsAdded) {
  std::string lines;
  for (int i = 0; i < 20; ++i) {
    lines += std::to_string(i) + "\n";
  }
  const auto text = std::make_shared<std::string>("X\n" + lines + "Y\n");
  DataLines data(text, 2, text->size() - 2);
  const DataLines before = data;
  data.add("20");
  ASSERT_EQ(data.count(), 21U);
  for (std::size_t i = 0; i < 21; ++i) {
    EXPECT_EQ(data.line(i), std::to_string(i));
  }
  EXPECT_EQ(before.count(), 20U);
  EXPECT_EQ(*text, "X\n" + lines + "Y\n");
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
