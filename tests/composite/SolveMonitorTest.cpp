#include "composite/SolveMonitor.h"

#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

#include <gtest/gtest.h>

namespace lamcraft {
namespace {

class SolveMonitorTest : public testing::Test {
 protected:
  void TearDown() override {
    unsetenv("KXFAKE_ITERATION");
    unsetenv("KXFAKE_STATUS");
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
  setenv("KXFAKE_ITERATION", "7", 1);
  EXPECT_EQ(printedDuring(std::chrono::milliseconds(0)), "Iteration: 7,  Error: 0.125\n");
}

TEST_F(SolveMonitorTest, PrintsAnIterationOnce) {
  setenv("KXFAKE_ITERATION", "7", 1);
  EXPECT_EQ(printedDuring(std::chrono::milliseconds(1200)), "Iteration: 7,  Error: 0.125\n");
}

TEST_F(SolveMonitorTest, StopsAskingWhenTheLibrarySaysSo) {
  setenv("KXFAKE_ITERATION", "7", 1);
  setenv("KXFAKE_STATUS", "1", 1);
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
