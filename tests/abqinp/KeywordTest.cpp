// SPDX-License-Identifier: BSD-3-Clause
#include "abqinp/Keyword.h"

#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace abqinp {
namespace {

Keyword sample() {
  Keyword keyword = Keyword::fromLine(R"(*KW1,B="x y",A,T=-20.5C,Q="7"8,U="open)");
  keyword.addDataLine("1.5E3,2");
  keyword.addDataLine("");
  keyword.addDataLine(",3,");
  keyword.addDataLine("12ABC,ABC,0.9,1E");
  return keyword;
}

template <typename Error, typename Call>
std::string messageOf(Call call) {
  try {
    call();
  } catch (const Error& error) {
    return error.what();
  }
  return "nothing was thrown";
}

TEST(Keyword, TakesItsNameUpToTheFirstComma) {
  EXPECT_EQ(Keyword::fromLine("*KW1").name(), "KW1");
  EXPECT_EQ(Keyword::fromLine("*KW1,").name(), "KW1");
  EXPECT_EQ(Keyword::fromLine("*KW=1,A").name(), "KW=1");
  EXPECT_EQ(Keyword::fromLine("*").name(), "");
  EXPECT_EQ(Keyword::fromLine("*,A").name(), "");
}

TEST(Keyword, GivesParametersByName) {
  const Keyword keyword = sample();
  EXPECT_TRUE(keyword.hasParameter("A"));
  EXPECT_FALSE(keyword.hasParameter("a"));
  EXPECT_EQ(keyword.parameter("A"), Parameter("A", ""));
  EXPECT_EQ(keyword.parameter("B"), Parameter("B", "\"x y\""));
}

TEST(Keyword, NamesTheParameterThatIsMissing) {
  const Keyword keyword = sample();
  const std::string message = "KW1 does not have a parameter named P";
  EXPECT_EQ(messageOf<std::out_of_range>([&] { static_cast<void>(keyword.parameter("P")); }),
            message);
  EXPECT_EQ(messageOf<std::out_of_range>([&] { static_cast<void>(keyword.parameterText("P")); }),
            message);
  EXPECT_EQ(messageOf<std::out_of_range>([&] { static_cast<void>(keyword.parameterNumber("P")); }),
            message);
}

TEST(Keyword, TakesAParametersTextOutOfItsQuotes) {
  EXPECT_EQ(Keyword::unquotedValue({"A", "plain"}), "plain");
  EXPECT_EQ(Keyword::unquotedValue({"A", ""}), "");
  EXPECT_EQ(Keyword::unquotedValue({"A", "x\"a b\"y\"c\""}), "a b");
  EXPECT_EQ(Keyword::unquotedValue({"A", "\"a b"}), "a b");
  EXPECT_EQ(Keyword::unquotedValue({"A", "a\""}), "");
  EXPECT_EQ(Keyword::unquotedValue({"A", "\"\"a"}), "");
  EXPECT_EQ(sample().parameterText("B"), "x y");
  EXPECT_EQ(sample().parameterText("U"), "open");
}

TEST(Keyword, ReadsTheNumberOfAParameter) {
  EXPECT_EQ(sample().parameterNumber("T"), -20.5);
  EXPECT_EQ(sample().parameterNumber("Q"), 7.0);
  EXPECT_EQ(
      messageOf<std::invalid_argument>([] { static_cast<void>(sample().parameterNumber("B")); }),
      "x y");
  EXPECT_EQ(
      messageOf<std::invalid_argument>([] { static_cast<void>(sample().parameterNumber("A")); }),
      "");
}

TEST(Keyword, CountsBlankLinesBetweenDataLines) {
  EXPECT_EQ(sample().lineCount(), 4U);
}

TEST(Keyword, TellsWhichValuesItHas) {
  const Keyword keyword = sample();
  EXPECT_TRUE(keyword.hasValue(0, 1));
  EXPECT_FALSE(keyword.hasValue(0, 2));
  EXPECT_FALSE(keyword.hasValue(1, 0)) << "a blank line has no values";
  EXPECT_TRUE(keyword.hasValue(2, 0)) << "an empty value is one";
  EXPECT_TRUE(keyword.hasValue(2, 2));
  EXPECT_FALSE(keyword.hasValue(2, 3));
  EXPECT_FALSE(keyword.hasValue(4, 0));
}

TEST(Keyword, ReadsNumbersOrTheirDefaults) {
  const Keyword keyword = sample();
  EXPECT_EQ(keyword.doubleValue(0, 0, 7.0), 1500.0);
  EXPECT_EQ(keyword.intValue(0, 1, 7), 2);
  EXPECT_EQ(keyword.intValue(0, 5, 7), 7);
  EXPECT_EQ(keyword.doubleValue(1, 0, 7.0), 7.0);
  EXPECT_EQ(keyword.doubleValue(2, 0, 7.0), 7.0) << "an empty value reads as the default";
  EXPECT_EQ(keyword.intValue(2, 0, 7), 7);
  EXPECT_EQ(keyword.doubleValue(9, 0, 7.0), 7.0);
  EXPECT_EQ(keyword.doubleValue(3, 0, 7.0), 12.0);
  EXPECT_EQ(keyword.intValue(3, 0, 7), 12);
  EXPECT_EQ(keyword.intValue(3, 2, 7), 0);
}

TEST(Keyword, FailsWithTheTextThatIsNoNumber) {
  EXPECT_EQ(
      messageOf<std::invalid_argument>([] { static_cast<void>(sample().doubleValue(3, 1, 0.0)); }),
      "ABC");
  EXPECT_EQ(
      messageOf<std::invalid_argument>([] { static_cast<void>(sample().doubleValue(3, 3, 0.0)); }),
      "1E");
  EXPECT_EQ(messageOf<std::invalid_argument>([] { static_cast<void>(sample().intValue(3, 1, 0)); }),
            "ABC");
}

TEST(Keyword, RequiresLinesAndValues) {
  const Keyword keyword = sample();
  EXPECT_EQ(keyword.requiredValue(0, 1), 2.0);
  EXPECT_EQ(keyword.requiredValue(2, 0), 0.0) << "an empty value is there";
  EXPECT_EQ(messageOf<std::out_of_range>([&] { keyword.requireValue(4, 0); }),
            "Requested line does not exist");
  EXPECT_EQ(messageOf<std::out_of_range>([&] { keyword.requireValue(0, 2); }),
            "Requested value does not exist");
  EXPECT_EQ(messageOf<std::out_of_range>([&] { keyword.requireValue(1, 0); }),
            "Requested value does not exist");
  EXPECT_EQ(messageOf<std::out_of_range>([&] { static_cast<void>(keyword.requiredValue(0, 2)); }),
            "Requested value does not exist");
}

TEST(Keyword, WritesItsParametersSortedOrAsTheyWereWritten) {
  Keyword keyword = Keyword::fromLine("*KW1,B=2,A,B=3");
  keyword.addDataLine("1,,2");
  keyword.addDataLine("");
  keyword.addDataLine("X");
  EXPECT_EQ(keyword.toText(false), "*KW1, A, B=2\n1, , 2\n\nX\n");
  EXPECT_EQ(keyword.toText(true), "*KW1, B=2, A, B=2\n1, , 2\n\nX\n");
}

Keyword keywordOf(const std::vector<std::string>& lines) {
  Keyword keyword = Keyword::fromLine(lines.front());
  for (std::size_t i = 1; i < lines.size(); ++i) {
    keyword.addParameters(lines[i]);
  }
  return keyword;
}

TEST(Keyword, SplitsParametersAtTheFirstEqualsSign) {
  const Keyword keyword = keywordOf({"*K,A=1=2,B,C=,=D"});
  EXPECT_EQ(keyword.parameterText("A"), "1=2");
  EXPECT_EQ(keyword.parameterText("B"), "");
  EXPECT_EQ(keyword.parameterText("C"), "");
  EXPECT_EQ(keyword.parameterText(""), "D");
  EXPECT_FALSE(keyword.hasParameter("D"));
}

TEST(Keyword, SkipsEmptyParameters) {
  EXPECT_EQ(keywordOf({"*K,", ",,B,,A,"}).toText(true), "*K, B, A\n");
  EXPECT_EQ(keywordOf({"*K,", "", ","}).toText(true), "*K\n");
}

TEST(Keyword, LeavesTheLeftOfTwoValuesOnOneLine) {
  const Keyword keyword = keywordOf({"*K,A=1,A=2"});
  EXPECT_EQ(keyword.parameterText("A"), "1");
  EXPECT_EQ(keyword.parameterPlace("A").column, 4U);
  EXPECT_EQ(keyword.toText(true), "*K, A=1, A=1\n");
  EXPECT_EQ(keyword.toText(false), "*K, A=1\n");
}

TEST(Keyword, TakesTheParameterOfALaterLine) {
  const Keyword keyword = keywordOf({"*K,B=1,A=1,", "B=2,C"});
  EXPECT_EQ(keyword.parameterText("B"), "2");
  EXPECT_EQ(keyword.toText(false), "*K, A=1, B=2, C\n");
  EXPECT_EQ(keyword.toText(true), "*K, B=2, A=1, B=2, C\n");
}

TEST(Keyword, OrdersALineBehindAsManyNamesAsThereWereDifferentOnes) {
  // After the first line the order is A A but one name: the second line comes in behind one.
  EXPECT_EQ(keywordOf({"*K,A,A,", "B,C"}).toText(true), "*K, A, B, C, A\n");
}

TEST(Keyword, KnowsThePlacesOfWhatItHolds) {
  Keyword keyword = Keyword::fromLine(" *kw1, b = 2", 7);
  keyword.addDataLine("", 8);
  keyword.addDataLine("  1 ,, 3", 9);
  EXPECT_EQ(keyword.line(), 7U);
  EXPECT_EQ(keyword.parameterPlace("B").line, 7U);
  EXPECT_EQ(keyword.parameterPlace("B").column, 8U);
  EXPECT_EQ(keyword.dataLineNumber(1), 9U);
  EXPECT_EQ(keyword.valuePlace(1, 0).line, 9U);
  EXPECT_EQ(keyword.valuePlace(1, 0).column, 3U);
  EXPECT_EQ(keyword.valuePlace(1, 1).column, 6U);
  EXPECT_EQ(keyword.valuePlace(1, 2).column, 8U);
  EXPECT_EQ(Keyword::fromComment("**", 3).line(), 3U);
  EXPECT_EQ(messageOf<std::out_of_range>([&] { static_cast<void>(keyword.valuePlace(2, 0)); }),
            "Requested line does not exist");
  EXPECT_EQ(messageOf<std::out_of_range>([&] { static_cast<void>(keyword.valuePlace(0, 0)); }),
            "Requested value does not exist");
  EXPECT_EQ(messageOf<std::out_of_range>([&] { static_cast<void>(keyword.parameterPlace("C")); }),
            "KW1 does not have a parameter named C");
}

TEST(Keyword, IsACommentWhenItHasACommentText) {
  const Keyword comment = Keyword::fromComment("  ** Some, note ");
  EXPECT_TRUE(comment.isComment());
  EXPECT_EQ(comment.comment(), "  ** Some, note ");
  EXPECT_EQ(comment.name(), "");
  EXPECT_EQ(comment.toText(false), "  ** Some, note \n");
  EXPECT_FALSE(sample().isComment());
  EXPECT_EQ(sample().comment(), "");
}

TEST(Keyword, IsAValue) {
  static_assert(std::is_nothrow_move_constructible_v<Keyword>, "growing a deck moves its keywords");
  Keyword original = sample();
  const std::string text = original.toText(true);
  const Keyword copy = original;
  original.addDataLine("9");
  EXPECT_EQ(copy.toText(true), text);
  const Keyword moved = std::move(original);
  EXPECT_EQ(moved.toText(true), text + "9\n");
}

}  // namespace
}  // namespace abqinp
