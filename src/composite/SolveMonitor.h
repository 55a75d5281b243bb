#ifndef LAMCRAFT_COMPOSITE_SOLVEMONITOR_H
#define LAMCRAFT_COMPOSITE_SOLVEMONITOR_H

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>

namespace lamcraft {

/// Prints an iteration line whenever the library reports a new iteration, asking it once a second
/// from a thread of its own, for as long as the object lives.
///
/// The first question is asked before the constructor returns, so that what a short solve prints
/// does not depend on how fast the thread starts. Destruction ends the thread at once.
class SolveMonitor {
 public:
  SolveMonitor();
  ~SolveMonitor();
  SolveMonitor(const SolveMonitor&) = delete;
  SolveMonitor& operator=(const SolveMonitor&) = delete;

 private:
  void watch();
  void reportIteration(const std::string& separator);
  void markAsked();
  [[nodiscard]] bool waitForNextPoll();

  std::int32_t lastIteration_ = -1;  // of the last line printed; the thread's own
  std::mutex mutex_;
  std::condition_variable changed_;
  bool hasAsked_ = false;
  bool isToStop_ = false;
  std::thread thread_;
};

}  // namespace lamcraft

#endif
