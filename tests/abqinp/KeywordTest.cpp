#include "abqinp/Keyword.h"

#include <stdexcept>
#include <string>
#include <type_traits>

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
  static_assert(std::is_nothrow_move_constructible_v<Keyword>, "a deck's keywords must be moved");
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
