#include "composite/SolveMonitor.h"

#include <chrono>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "support/Environment.h"

namespace lamcraft {
namespace {

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
  EXPECT_EQ(printedDuring(std::chrono::milliseconds(0)), "");
}

TEST_F(SolveMonitorTest, PrintsIterationAndErrorBeforeTheSolveStarts) {
  test::setVariable("KXFAKE_ITERATION", "7");
  EXPECT_EQ(printedDuring(std::chrono::milliseconds(0)), "Iteration: 7,  Error: 0.125\n");
}

TEST_F(SolveMonitorTest, PrintsAnIterationOnce) {
  test::setVariable("KXFAKE_ITERATION", "7");
  EXPECT_EQ(printedDuring(std::chrono::milliseconds(1200)), "Iteration: 7,  Error: 0.125\n");
}

TEST_F(SolveMonitorTest, StopsAskingWhenTheLibrarySaysSo) {
  test::setVariable("KXFAKE_ITERATION", "7");
  test::setVariable("KXFAKE_STATUS", "1");
  EXPECT_EQ(printedDuring(std::chrono::milliseconds(0)), "");
}

TEST_F(SolveMonitorTest, EndsWithTheSolveAndNotWithItsNextPoll) {
  const auto start = std::chrono::steady_clock::now();
  { const SolveMonitor monitor; }
  // Half the poll interval: far above any scheduling delay, far below one poll.
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
}

}  // namespace
}  // namespace lamcraft
