// SPDX-License-Identifier: BSD-3-Clause
#include "findings/Finding.h"

#include <gtest/gtest.h>

namespace lamkit {
namespace {

Finding of(const Severity severity) {
  Finding finding;
  finding.severity = severity;
  return finding;
}

TEST(Finding, WorstIsTheHeaviestWhereverItStands) {
  EXPECT_EQ(worst({}), Severity::note);
  EXPECT_EQ(worst({of(Severity::note), of(Severity::error), of(Severity::warning)}),
            Severity::error);
}

TEST(Finding, VerdictAndExitCodeFollowTheHeaviest) {
  EXPECT_STREQ(verdictOf({}), "good");
  EXPECT_STREQ(verdictOf({of(Severity::note)}), "good");
  EXPECT_STREQ(verdictOf({of(Severity::warning)}), "doubtful");
  EXPECT_STREQ(verdictOf({of(Severity::error)}), "bad");
  EXPECT_EQ(exitCodeOf({of(Severity::note)}), ExitCode::good);
  EXPECT_EQ(exitCodeOf({of(Severity::warning), of(Severity::note)}), ExitCode::doubtful);
  EXPECT_EQ(exitCodeOf({of(Severity::warning), of(Severity::error)}), ExitCode::bad);
}

}  // namespace
}  // namespace lamkit
