// SPDX-License-Identifier: BSD-3-Clause
#include "check/NumberText.h"

#include <gtest/gtest.h>

namespace lamkit {
namespace {

TEST(NumberText, ReadsWhatTheProgramReads) {
  EXPECT_DOUBLE_EQ(readNumber("1.5E3").number, 1500.0);
  EXPECT_DOUBLE_EQ(readNumber("12ABC").number, 12.0);
  EXPECT_TRUE(readNumber("").isEmpty);
  for (const char* const text : {"ABC", "1E", "1E400", "-", "NAN"}) {
    EXPECT_FALSE(readNumber(text).isNumber) << text;
  }
}

TEST(NumberText, SaysWhatIsIgnored) {
  EXPECT_EQ(readNumber("-1.5E-3").ignored, "");
  EXPECT_EQ(readNumber("126GPA").ignored, "GPA");
  EXPECT_EQ(readNumber("1.5D3").ignored, "D3");
  EXPECT_EQ(readNumber("1.5.3").ignored, ".3");
}

TEST(NumberText, UnitsDoNotChangeANumberAndDigitsDo) {
  for (const char* const unit : {"GPA", "N/MM2", "%", "K"}) {
    EXPECT_FALSE(changesNumber(unit)) << unit;
  }
  const char* const afterNoBreakSpace =
      "\xC2\xA0"
      "580";
  for (const char* const digits : {"D3", "d-3", ".3", ";9.08E9", afterNoBreakSpace, "'000"}) {
    EXPECT_TRUE(changesNumber(digits)) << digits;
  }
}

TEST(NumberText, KnowsTheTwoHalvesOfADecimalComma) {
  EXPECT_TRUE(isWhole("-0"));
  EXPECT_FALSE(isWhole("0.5"));
  EXPECT_FALSE(isWhole("1E3"));
  EXPECT_TRUE(isFraction("6"));
  EXPECT_TRUE(isFraction("6E-6"));
  EXPECT_FALSE(isFraction("-6"));
  EXPECT_FALSE(isFraction(""));
}

}  // namespace
}  // namespace lamkit
