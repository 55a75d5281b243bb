// SPDX-License-Identifier: BSD-3-Clause
#include "golden/NumericText.h"

#include <string>

#include <gtest/gtest.h>

namespace lamcraft::test {
namespace {

std::string deviation(const std::string& expected, const std::string& actual) {
  return firstDeviation(expected, actual, [](const std::string& /*line*/) {
    return Tolerance{1e-3, 1e-9};
  });
}

TEST(NumericText, PassesNumbersWithinTheTolerance) {
  EXPECT_EQ(deviation("E11 =  1.0000e+05, ok\n", "E11 =  1.0009e+05, ok\n"), "");
  EXPECT_EQ(deviation("error: 1e-10", "error: 3.5e-10"), "");
}

TEST(NumericText, NamesTheLineOfANumberThatIsOff) {
  EXPECT_EQ(deviation("a\nE11 = 1.000\n", "a\nE11 = 1.002\n"),
            "line 2\nexpected: E11 = 1.000\nactual:   E11 = 1.002");
}

TEST(NumericText, TakesTheBlankOfASignForNothing) {
  EXPECT_EQ(deviation("value=\" 1.0E-12\"", "value=\"-1.0E-12\""), "");
}

TEST(NumericText, ComparesWordsExactly) {
  EXPECT_NE(deviation("E11 = 1.0", "E22 = 1.0"), "");
  EXPECT_NE(deviation("G12 = 1.0", "G12= 1.0"), "");
  EXPECT_NE(deviation("a 1.0", "a  b"), "");
}

TEST(NumericText, MissesNoLineAtTheEnd) {
  EXPECT_NE(deviation("a\nb\n", "a\n"), "");
  EXPECT_NE(deviation("a\n", "a\nb\n"), "");
}

TEST(NumericText, FailsWhatIsNoNumber) {
  EXPECT_NE(deviation("E11 = 1.0", "E11 = nan"), "");
  EXPECT_NE(deviation("E11 = 1.0", "E11 = inf"), "");
}

}  // namespace
}  // namespace lamcraft::test
