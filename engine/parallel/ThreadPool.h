// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_PARALLEL_THREADPOOL_H
#define KX_PARALLEL_THREADPOOL_H

#include <cstddef>
#include <functional>
#include <memory>

namespace kx {

/// Worker threads that share out the items of a loop.
///
/// Which thread works on which item is left open, so an item writes only what is its own, and sums
/// over items are taken by the caller in the order of the items: then results have the same bits
/// for any number of threads. Workers start with the first loop.
class ThreadPool {
 public:
  /// `threads` >= 1 counts the caller, who works along.
  explicit ThreadPool(int threads);
  ~ThreadPool();
  ThreadPool(const ThreadPool&) = delete;
  ThreadPool& operator=(const ThreadPool&) = delete;

  /// The value of the environment variable KX_THREADS (1 to 256), else the processor count.
  static int defaultThreads();

  int threads() const { return threads_; }

  /// Calls work(0) ... work(items - 1), each once, and returns when all are done. Must not be
  /// called from inside of work. The first exception that an item throws is thrown again here.
  void forEach(std::size_t items, const std::function<void(std::size_t)>& work);

  /// Ends the workers; the next loop starts new ones. For pools that outlive their work.
  void endWorkers();

 private:
  struct Shared;
  int threads_;
  std::unique_ptr<Shared> shared_;
};

}  // namespace kx

#endif
