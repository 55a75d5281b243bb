// SPDX-License-Identifier: BSD-3-Clause
#include "findings/TextFindings.h"

#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace lamkit {
namespace {

Finding unitSlip() {
  Finding finding;
  finding.file = "my.qdk";
  finding.line = 17;
  finding.column = 1;
  finding.rule = "unit-slip";
  finding.severity = Severity::error;
  finding.message = "LAMINA E11 is 126 Pa, plies have 1e9 to 1e12 Pa: was it meant in GPa?";
  return finding;
}

std::string textOf(const Finding& finding, const bool color = false) {
  std::ostringstream out;
  writeText(out, finding, color);
  return out.str();
}

TEST(TextFindings, LooksLikeACompilersMessage) {
  EXPECT_EQ(textOf(unitSlip()),
            "my.qdk:17:1: error: LAMINA E11 is 126 Pa, plies have 1e9 to 1e12 Pa: was it meant in "
            "GPa? [unit-slip]\n");
}

TEST(TextFindings, LeavesOutThePlaceWhereThereIsNone) {
  Finding finding = unitSlip();
  finding.line = 0;
  finding.column = 0;
  EXPECT_EQ(textOf(finding).find("my.qdk: error: LAMINA"), 0U);
}

TEST(TextFindings, ColorsTheSeverityAlone) {
  EXPECT_EQ(textOf(unitSlip(), true).find("my.qdk:17:1: \x1b[1;31merror:\x1b[0m LAMINA"), 0U);
}

TEST(TextFindings, NoDeckSteersTheTerminal) {
  Finding finding = unitSlip();
  finding.message = "a\x1b[2Jb\nc";
  EXPECT_EQ(textOf(finding), "my.qdk:17:1: error: a?[2Jb?c [unit-slip]\n");
}

TEST(TextFindings, CountsBySeverity) {
  EXPECT_EQ(countsOf({}), "0 errors, 0 warnings, 0 notes");
  EXPECT_EQ(countsOf({{"a", {unitSlip()}}, {"b", {}}}), "1 error, 0 warnings, 0 notes");
}

}  // namespace
}  // namespace lamkit
