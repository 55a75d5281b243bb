// SPDX-License-Identifier: BSD-3-Clause
#include "solve/RunRules.h"

#include <string>

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace lamkit {
namespace {

bool isInGuide(const Finding& finding) {
  const std::string guide = lamcraft::test::contentOf(std::string(LAMCRAFT_DOCS) + "/lamkit.md");
  return guide.find("error: " + finding.message + " [" + finding.rule + "]") != std::string::npos;
}

ChildEnd ended(const int code) {
  return {code, std::chrono::duration<double>(1.0)};
}

TEST(RunRules, HaveNothingToSayOfAWholeRun) {
  EXPECT_TRUE(runFindings(ended(0), "Solving...\n", true).empty());
}

TEST(RunRules, SayWhyARunFailed) {
  const auto fatal = runFindings(
      ended(0), "a\nFATAL ERROR: Malformed input file: \r\nInvalid keyword: X\nb\n", false);
  ASSERT_EQ(fatal.size(), 1U);
  EXPECT_EQ(fatal[0].rule, "failed");
  EXPECT_EQ(fatal[0].severity, Severity::error);
  EXPECT_EQ(
      fatal[0].message,
      "lamcraft says \"FATAL ERROR: Malformed input file: Invalid keyword: X\": mend the deck");
  EXPECT_TRUE(isInGuide(fatal[0]));
  EXPECT_EQ(runFindings(ended(139), "", true).at(0).value, "exit code 139");
  EXPECT_EQ(runFindings(ended(0), "", false).at(0).value, "no mdata.xml");
}

TEST(RunRules, TellARunThatTookTooLongFromOneThatFailed) {
  const auto findings = runFindings({std::nullopt, std::chrono::duration<double>(1.5)}, "", false);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].rule, "timeout");
  EXPECT_EQ(findings[0].value, "1.5 s");
  EXPECT_TRUE(isInGuide(findings[0]));
}

}  // namespace
}  // namespace lamkit
