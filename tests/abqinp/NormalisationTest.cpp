#include "abqinp/Normalisation.h"

#include <cctype>
#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace abqinp {
namespace {

struct LineCase {
  std::string_view line;
  std::string_view normalised;
};

std::ostream& operator<<(std::ostream& out, const LineCase& row) {
  return out << testing::PrintToString(row.line);
}

class Normalised : public testing::TestWithParam<LineCase> {};

TEST_P(Normalised, Line) {
  std::string text = "what was there before";
  normalise(GetParam().line, text);
  EXPECT_EQ(text, GetParam().normalised);
}

using namespace std::string_view_literals;

INSTANTIATE_TEST_SUITE_P(
    Normalisation,
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

TEST(Normalisation, ClassifiesBytesAsTheCLocaleDoes) {
  for (int code = 0; code < 128; ++code) {
    const char c = static_cast<char>(code);
    if (c == '"') {
      continue;
    }
    std::string text;
    normalise(std::string({c, 'X'}), text);
    const std::string kept(std::isspace(code) != 0 ? 0 : 1, static_cast<char>(std::toupper(code)));
    EXPECT_EQ(text, kept + "X") << code;
  }
}

TEST(Normalisation, LooksForTwoStarsInARowToTellComments) {
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

TEST(Normalisation, RemovesOneCarriageReturn) {
  EXPECT_EQ(withoutCarriageReturn("a\r"), "a");
  EXPECT_EQ(withoutCarriageReturn("a\r\r"), "a\r");
  EXPECT_EQ(withoutCarriageReturn("\ra"), "\ra");
  EXPECT_EQ(withoutCarriageReturn("\r"), "");
  EXPECT_EQ(withoutCarriageReturn(""), "");
}

}  // namespace
}  // namespace abqinp
