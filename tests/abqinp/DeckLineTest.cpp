// SPDX-License-Identifier: BSD-3-Clause
#include "abqinp/DeckLine.h"

#include <cctype>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace abqinp {
namespace {

using testing::ElementsAre;

struct LineCase {
  std::string_view line;
  std::string_view normalised;
};

std::ostream& operator<<(std::ostream& out, const LineCase& row) {
  return out << testing::PrintToString(row.line);
}

class Normalised : public testing::TestWithParam<LineCase> {};

/// The values of a line, joined as they were.
std::string normalised(const std::string_view line) {
  std::string text;
  for (const Value& value : valuesOf(line)) {
    text += value.text + ",";
  }
  return text.substr(0, text.empty() ? 0 : text.size() - 1);
}

TEST_P(Normalised, Line) {
  EXPECT_EQ(normalised(GetParam().line), GetParam().normalised);
}

using namespace std::string_view_literals;

INSTANTIATE_TEST_SUITE_P(
    DeckLine,
    Normalised,
    testing::Values(LineCase{"", ""},
                    LineCase{" \t\v\f ", ""},
                    LineCase{"*kw1, name = Carbon Epoxy", "*KW1,NAME=CARBONEPOXY"},
                    LineCase{"a = \"Carbon Epoxy\" , b", "A=\"Carbon Epoxy\",B"},
                    LineCase{"\"a b\"c d\"e f\"g h", "\"a b\"CD\"e f\"GH"},
                    LineCase{"a b \"\" c d", "AB\"\"CD"},
                    LineCase{"a b \"c d, e", "AB\"c d, e"},
                    LineCase{"a \"b c\" d \"e f", "A\"b c\"D\"e f"},
                    LineCase{"\"", "\""},
                    LineCase{"a b\r", "AB"},
                    LineCase{"\r", ""},
                    LineCase{"a\rb\r", "AB"},
                    LineCase{"\"a \r", "\"a "},
                    LineCase{"\"a \r\r", "\"a \r"},
                    LineCase{"a\0b"sv, "A\0B"sv},
                    LineCase{"stra\xc3\x9f\x65 \xe9\xa0", "STRA\xc3\x9f\x45\xe9\xa0"}));

std::vector<std::string> textsOf(const std::string_view line) {
  std::vector<std::string> texts;
  for (const Value& value : valuesOf(line)) {
    texts.push_back(value.text);
  }
  return texts;
}

TEST(DeckLine, IsCutAtEveryComma) {
  EXPECT_THAT(textsOf("1,2"), ElementsAre("1", "2"));
  EXPECT_THAT(textsOf("1,2,"), ElementsAre("1", "2", ""));
  EXPECT_THAT(textsOf(",,1"), ElementsAre("", "", "1"));
  EXPECT_THAT(textsOf(","), ElementsAre("", ""));
  EXPECT_THAT(textsOf("\"a, b\" , c"), ElementsAre("\"a", " b\"", "C"));
  EXPECT_THAT(textsOf(" \t\r"), ElementsAre()) << "a blank line has no values";
}

std::vector<std::size_t> columnsOf(const std::string_view line) {
  std::vector<std::size_t> columns;
  for (const Value& value : valuesOf(line)) {
    columns.push_back(value.column);
  }
  return columns;
}

TEST(DeckLine, KnowsInWhichByteEachValueBegins) {
  EXPECT_THAT(columnsOf("1,23,4"), ElementsAre(1, 3, 6));
  EXPECT_THAT(columnsOf("  1 ,\t2\r"), ElementsAre(3, 7));
  EXPECT_THAT(columnsOf("\xc3\xa4, \"a b\""), ElementsAre(1, 5)) << "bytes, not letters";
  EXPECT_THAT(columnsOf("1, ,2,"), ElementsAre(1, 4, 5, 7)) << "an empty value has its comma's";
  EXPECT_THAT(columnsOf("  *KW, a = 1"), ElementsAre(3, 8));
}

TEST(DeckLine, ClassifiesBytesAsTheCLocaleDoes) {
  for (int code = 0; code < 128; ++code) {
    const char c = static_cast<char>(code);
    if (c == '"') {
      continue;
    }
    const std::string text = normalised(std::string({c, 'X'}));
    const std::string kept(std::isspace(code) != 0 ? 0 : 1, static_cast<char>(std::toupper(code)));
    EXPECT_EQ(text, kept + "X") << code;
  }
}

TEST(DeckLine, LooksForTwoStarsInARowToTellComments) {
  EXPECT_TRUE(isCommentLine("** note"));
  EXPECT_TRUE(isCommentLine("  ** note"));
  EXPECT_TRUE(isCommentLine("A**B"));
  EXPECT_TRUE(isCommentLine("***"));
  EXPECT_TRUE(isCommentLine("\"**\""));
  EXPECT_FALSE(isCommentLine("1.0, *2"));
  EXPECT_FALSE(isCommentLine("*A**B"));
  EXPECT_FALSE(isCommentLine("* *A"));
  EXPECT_FALSE(isCommentLine("*"));
  EXPECT_FALSE(isCommentLine(""));
}

TEST(DeckLine, TellsKeywordsByTheirStar) {
  EXPECT_TRUE(isKeywordLine("*KW"));
  EXPECT_TRUE(isKeywordLine(" \t*"));
  EXPECT_FALSE(isKeywordLine("1, *2"));
  EXPECT_FALSE(isKeywordLine(""));
  EXPECT_FALSE(isKeywordLine("  "));
}

TEST(DeckLine, IsBlankWithoutAnythingBeyondWhiteSpace) {
  EXPECT_TRUE(isBlankLine(""));
  EXPECT_TRUE(isBlankLine(" \t\v\f\r"));
  EXPECT_FALSE(isBlankLine(" ,"));
  EXPECT_FALSE(isBlankLine("\" \""));
}

TEST(DeckLine, RemovesOneCarriageReturn) {
  EXPECT_EQ(withoutCarriageReturn("a\r"), "a");
  EXPECT_EQ(withoutCarriageReturn("a\r\r"), "a\r");
  EXPECT_EQ(withoutCarriageReturn("\ra"), "\ra");
  EXPECT_EQ(withoutCarriageReturn("\r"), "");
  EXPECT_EQ(withoutCarriageReturn(""), "");
}

}  // namespace
}  // namespace abqinp
