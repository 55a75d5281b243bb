// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_COMPOSITE_SOLVEMONITOR_H
#define LAMCRAFT_COMPOSITE_SOLVEMONITOR_H

#include <condition_variable>
#include <mutex>
#include <thread>

namespace lamcraft {

/// Prints an iteration line whenever the library reports a new iteration, asking it once a second
/// from a thread of its own, for as long as the object lives. Nobody waits for the thread until the
/// object is destroyed, which ends it without its next poll.
class SolveMonitor {
 public:
  SolveMonitor();
  ~SolveMonitor();
  SolveMonitor(const SolveMonitor&) = delete;
  SolveMonitor& operator=(const SolveMonitor&) = delete;

 private:
  void watch();
  [[nodiscard]] bool waitForNextPoll();

  std::mutex mutex_;
  std::condition_variable stopped_;
  bool isToStop_ = false;
  std::thread thread_;
};

}  // namespace lamcraft

#endif
