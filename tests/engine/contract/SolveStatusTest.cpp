// SPDX-License-Identifier: BSD-3-Clause
#include "contract/SolveStatus.h"

#include <atomic>
#include <limits>
#include <thread>

#include <gtest/gtest.h>

#include "contract/Contract.h"

namespace {

TEST(SolveStatus, IterationIsMinusOneBeforeTheFirstSolve) {
  EXPECT_EQ(kx::SolveStatus().snapshot().iteration, -1);
}

TEST(SolveStatus, IterationsCountOnFromSolveToSolve) {
  kx::SolveStatus status;
  status.begin();
  EXPECT_EQ(status.snapshot().iteration, -1);  // nothing to say yet
  status.report(0, 1.0);
  EXPECT_EQ(status.snapshot().iteration, 0);
  status.report(5, 0.5);
  EXPECT_EQ(status.snapshot().iteration, 5);
  status.report(3, 0.25);  // the thermal fit counts from the start again
  EXPECT_EQ(status.snapshot().iteration, 5);
  EXPECT_EQ(status.snapshot().error, 0.25);
  status.begin();
  status.report(0, 1.0);
  EXPECT_EQ(status.snapshot().iteration, 6);
  status.report(4, 0.1);
  EXPECT_EQ(status.snapshot().iteration, 10);
}

TEST(SolveStatus, CountEndsAtTheLargestNumber) {
  constexpr auto kLast = std::numeric_limits<std::int32_t>::max();
  kx::SolveStatus status;
  status.begin();
  status.report(kLast, 1.0);
  status.begin();
  status.report(kLast, 1.0);
  EXPECT_EQ(status.snapshot().iteration, kLast);
}

TEST(SolveStatus, ReaderGetsIterationAndErrorThatBelongTogether) {
  kx::SolveStatus status;
  status.begin();
  std::atomic<bool> isDone{false};
  std::thread reader([&] {
    while (!isDone) {
      const auto seen = status.snapshot();
      if (seen.iteration >= 0) {
        ASSERT_EQ(seen.error, static_cast<double>(seen.iteration));
      }
    }
  });
  for (std::int32_t i = 0; i < 100000; ++i) {
    status.report(i, static_cast<double>(i));
  }
  isDone = true;
  reader.join();
}

TEST(InsituStatus, AnswersASecondThreadWhileALaminaIsFitted) {
  std::int32_t before = -7;
  double error = -7.0;
  EXPECT_EQ(INSITU_STATUS(&before, &error), 0);
  std::atomic<bool> isDone{false};
  std::thread monitor([&] {
    std::int32_t last = before;
    while (!isDone) {
      std::int32_t iteration = -7;
      double now = -7.0;
      ASSERT_EQ(INSITU_STATUS(&iteration, &now), 0);
      ASSERT_GE(iteration, last);
      ASSERT_GE(now, 0.0);
      last = iteration;
    }
  });
  for (int i = 0; i < 20; ++i) {
    kx::test::UnidirectionalCall call;
    call.run();
  }
  isDone = true;
  monitor.join();
  std::int32_t after = -7;
  INSITU_STATUS(&after, &error);
  EXPECT_GE(after, before + 20);
}

TEST(InsituStatus, EndsWithTheIterationsAndTheErrorThatAreReturned) {
  for (const double fraction : {0.6, 60.0}) {
    std::int32_t before = -1;
    double error = -1.0;
    INSITU_STATUS(&before, &error);
    kx::test::UnidirectionalCall call;
    call.fiberVolumeFraction = fraction;
    call.run();
    std::int32_t after = -1;
    INSITU_STATUS(&after, &error);
    EXPECT_EQ(after - before - 1, call.iterations[0]);
    EXPECT_EQ(error, call.errors[1]);
  }
}

}  // namespace
