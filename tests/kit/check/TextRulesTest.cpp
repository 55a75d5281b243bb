// SPDX-License-Identifier: BSD-3-Clause
#include "check/TextRules.h"

#include <string>

#include <gtest/gtest.h>

namespace lamkit {
namespace {

std::string rulesOf(const std::string& deck) {
  std::string rules;
  for (const Finding& finding : checkText(deck)) {
    rules += finding.rule + "@" + std::to_string(finding.line) + ":" +
             std::to_string(finding.column) + " ";
  }
  return rules;
}

TEST(TextRules, APlainDeckHasNoFinding) {
  EXPECT_EQ(rulesOf("*MATERIAL\n1\n"), "");
  EXPECT_EQ(rulesOf("*MATERIAL\r\n1\r\n"), "");
  EXPECT_EQ(rulesOf(""), "");
  EXPECT_EQ(rulesOf("*MATERIAL\n\t1,\t2\n"), "");
}

TEST(TextRules, FindsAByteOrderMark) {
  EXPECT_EQ(rulesOf("\xEF\xBB\xBF*MATERIAL\n"), "byte-order-mark@1:1 ");
}

TEST(TextRules, TwoByteTextHasOneFindingAlone) {
  using namespace std::string_literals;
  EXPECT_EQ(rulesOf("\xFF\xFE*\0M\0A\0\n\0"s), "utf-16@1:1 ");
  EXPECT_EQ(rulesOf("\xFE\xFF\0*\0M\0A\0\n"s), "utf-16@1:1 ");
  EXPECT_EQ(rulesOf("*\0M\0A\0T\0\n\0"s), "utf-16@1:1 ");
}

TEST(TextRules, FindsALineThatOnlyACarriageReturnEnds) {
  EXPECT_EQ(rulesOf("*MATERIAL\r1\r"), "cr-only@1:10 ");
  EXPECT_EQ(rulesOf("*MATERIAL\n1\r*FVF\n0.6\n"), "cr-only@2:2 ");
}

TEST(TextRules, FindsCharactersThatWordProcessorsWrite) {
  EXPECT_EQ(rulesOf("*FVF\n0.6,\xC2\xA0"
                    "1\n"),
            "odd-character@2:5 ");
  EXPECT_EQ(rulesOf("\xE2\x88\x92"
                    "1e-6\n"),
            "odd-character@1:1 ");
  EXPECT_EQ(rulesOf("*MATERIAL, NAME=\xE2\x80\x9CPLY\xE2\x80\x9D\n"), "odd-character@1:17 ");
  EXPECT_EQ(rulesOf("1\x01"
                    "2\n"),
            "odd-character@1:2 ");
}

TEST(TextRules, LeavesCommentsAlone) {
  EXPECT_EQ(rulesOf("** caf\xC3\xA9 \xE2\x80\x93 \xE2\x80\x9Cquoted\xE2\x80\x9D\n"), "");
}

}  // namespace
}  // namespace lamkit
