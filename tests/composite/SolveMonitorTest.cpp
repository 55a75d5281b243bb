// SPDX-License-Identifier: BSD-3-Clause
#include "composite/SolveMonitor.h"

#include <chrono>
#include <iostream>
#include <sstream>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "support/Environment.h"

namespace lamcraft {
namespace {

/// For the thread to start and ask once: the next poll is a second later.
constexpr std::chrono::milliseconds kLongEnough{300};

class SolveMonitorTest : public testing::Test {
 protected:
  void TearDown() override {
    test::removeVariable("KXFAKE_ITERATION");
    test::removeVariable("KXFAKE_STATUS");
  }

  static std::string printedDuring(const std::chrono::milliseconds solve) {
    testing::internal::CaptureStdout();
    {
      const SolveMonitor monitor;
      std::this_thread::sleep_for(solve);
    }
    return testing::internal::GetCapturedStdout();
  }
};

TEST_F(SolveMonitorTest, IsSilentBeforeTheFirstIteration) {
  EXPECT_EQ(printedDuring(kLongEnough), "");
}

TEST_F(SolveMonitorTest, PrintsAnIterationOnce) {
  test::setVariable("KXFAKE_ITERATION", "7");
  EXPECT_EQ(printedDuring(std::chrono::milliseconds(1200)), "Iteration: 7,  Error: 0.125\n");
}

TEST_F(SolveMonitorTest, StopsAskingWhenTheLibrarySaysSo) {
  test::setVariable("KXFAKE_ITERATION", "7");
  test::setVariable("KXFAKE_STATUS", "1");
  EXPECT_EQ(printedDuring(kLongEnough), "");
}

TEST_F(SolveMonitorTest, PrintsOnTheWideStreamAlone) {
  test::setVariable("KXFAKE_ITERATION", "7");
  std::ostringstream narrow;
  std::wostringstream wide;
  std::streambuf* const narrowBefore = std::cout.rdbuf(narrow.rdbuf());
  std::wstreambuf* const wideBefore = std::wcout.rdbuf(wide.rdbuf());
  {
    const SolveMonitor monitor;
    std::this_thread::sleep_for(kLongEnough);
  }
  std::cout.rdbuf(narrowBefore);
  std::wcout.rdbuf(wideBefore);
  EXPECT_EQ(narrow.str(), "");
  EXPECT_EQ(wide.str(), L"Iteration: 7,  Error: 0.125\n");
}

TEST_F(SolveMonitorTest, EndsWithTheSolveAndNotWithItsNextPoll) {
  const auto start = std::chrono::steady_clock::now();
  { const SolveMonitor monitor; }
  // Half the poll interval: far above any scheduling delay, far below one poll.
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
}

}  // namespace
}  // namespace lamcraft
