// SPDX-License-Identifier: BSD-3-Clause
#include "parallel/ThreadPool.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstdlib>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace kx {

struct ThreadPool::Shared {
  std::mutex mutex;
  std::condition_variable wake;
  std::condition_variable done;
  const std::function<void(std::size_t)>* work = nullptr;
  std::size_t items = 0;
  std::atomic<std::size_t> next{0};
  std::atomic<unsigned> round{0};
  std::atomic<int> busy{0};
  std::atomic<bool> stopping{false};
  std::exception_ptr failure;
  std::vector<std::thread> workers;

  void takeItems() {
    for (std::size_t item = next++; item < items; item = next++) {
      try {
        (*work)(item);
      } catch (...) {
        const std::lock_guard<std::mutex> lock(mutex);
        if (!failure) {
          failure = std::current_exception();
        }
      }
    }
  }

  // Loops follow each other within microseconds while a solve runs: look a while, then sleep.
  template <typename Condition>
  void waitFor(std::condition_variable& signal, Condition condition) {
    for (int look = 0; look < kLooks; ++look) {
      if (condition()) {
        return;
      }
      if (look % kLooksPerYield == 0) {
        std::this_thread::yield();
      }
    }
    std::unique_lock<std::mutex> lock(mutex);
    signal.wait(lock, condition);
  }

  void serve(unsigned seen) {
    while (true) {
      waitFor(wake, [&] { return stopping || round != seen; });
      if (stopping) {
        return;
      }
      seen = round;
      takeItems();
      if (--busy == 0) {
        const std::lock_guard<std::mutex> lock(mutex);
        done.notify_one();
      }
    }
  }

  static constexpr int kLooks = 4000;
  static constexpr int kLooksPerYield = 64;
};

ThreadPool::ThreadPool(const int threads)
    : threads_(std::max(1, threads)), shared_(std::make_unique<Shared>()) {}

ThreadPool::~ThreadPool() {
  endWorkers();
}

void ThreadPool::endWorkers() {
  {
    const std::lock_guard<std::mutex> lock(shared_->mutex);
    shared_->stopping = true;
  }
  shared_->wake.notify_all();
  for (std::thread& worker : shared_->workers) {
    worker.join();
  }
  shared_->workers.clear();
  shared_->stopping = false;
}

int ThreadPool::defaultThreads() {
  constexpr long kMost = 256;
  const char* const text = std::getenv("KX_THREADS");
  const long asked = text == nullptr ? 0 : std::strtol(text, nullptr, 10);
  if (asked >= 1) {
    return static_cast<int>(std::min(asked, kMost));
  }
  return std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
}

void ThreadPool::forEach(const std::size_t items, const std::function<void(std::size_t)>& work) {
  if (threads_ == 1 || items < 2) {
    for (std::size_t item = 0; item < items; ++item) {
      work(item);
    }
    return;
  }
  while (shared_->workers.size() + 1 < static_cast<std::size_t>(threads_)) {
    shared_->workers.emplace_back([this, seen = shared_->round.load()] { shared_->serve(seen); });
  }
  {
    const std::lock_guard<std::mutex> lock(shared_->mutex);
    shared_->work = &work;
    shared_->items = items;
    shared_->next = 0;
    shared_->failure = nullptr;
    shared_->busy = threads_ - 1;
    ++shared_->round;
  }
  shared_->wake.notify_all();
  shared_->takeItems();
  shared_->waitFor(shared_->done, [this] { return shared_->busy == 0; });
  if (shared_->failure) {
    std::rethrow_exception(shared_->failure);
  }
}

}  // namespace kx
