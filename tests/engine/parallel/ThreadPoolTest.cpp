// SPDX-License-Identifier: BSD-3-Clause
#include "parallel/ThreadPool.h"

#include <atomic>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

namespace kx {
namespace {

TEST(ThreadPool, VisitsEveryItemOnce) {
  for (const int threads : {1, 2, 5}) {
    ThreadPool pool(threads);
    for (const std::size_t items : {0U, 1U, 2U, 1000U}) {
      std::vector<std::atomic<int>> visits(items);
      pool.forEach(items, [&](const std::size_t item) { ++visits[item]; });
      for (const auto& count : visits) {
        EXPECT_EQ(count, 1);
      }
    }
  }
}

TEST(ThreadPool, SharesOutManyLoopsInARow) {
  ThreadPool pool(3);
  std::atomic<long> sum{0};
  for (int loop = 0; loop < 2000; ++loop) {
    pool.forEach(4, [&](const std::size_t item) { sum += static_cast<long>(item); });
  }
  EXPECT_EQ(sum, 2000 * 6);
}

TEST(ThreadPool, WorksOnAfterARest) {
  ThreadPool pool(3);
  std::atomic<int> visits{0};
  for (int round = 0; round < 5; ++round) {
    pool.forEach(10, [&](std::size_t) { ++visits; });
    pool.endWorkers();
  }
  EXPECT_EQ(visits, 50);
}

TEST(ThreadPool, PassesAnExceptionOnAfterTheLoop) {
  ThreadPool pool(2);
  std::atomic<int> visited{0};
  const auto work = [&](const std::size_t item) {
    ++visited;
    if (item == 3) {
      throw std::runtime_error("item 3");
    }
  };
  EXPECT_THROW(pool.forEach(8, work), std::runtime_error);
  EXPECT_EQ(visited, 8);
  pool.forEach(2, [&](std::size_t) { ++visited; });
  EXPECT_EQ(visited, 10);
}

}  // namespace
}  // namespace kx
