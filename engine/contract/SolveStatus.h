// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_CONTRACT_SOLVESTATUS_H
#define KX_CONTRACT_SOLVESTATUS_H

#include <atomic>
#include <cstdint>

namespace kx {

/// Iteration and error of the running solve, written by the solving thread and read by one other.
///
/// Iterations are numbered through the life of the process, so that a reader who prints growing
/// numbers only shows every solve. Before the first one the number is -1. A reader always gets an
/// iteration with the error that belongs to it.
class SolveStatus {
 public:
  struct Snapshot {
    std::int32_t iteration = -1;
    double error = 0.0;
  };

  /// Starts a solve: the iterations that it reports count on from those before.
  void begin() noexcept;
  /// `iteration` counts from 0 within the solve. Numbers that go back are raised to the last one.
  void report(std::int32_t iteration, double error) noexcept;
  /// Any thread.
  [[nodiscard]] Snapshot snapshot() const noexcept;

 private:
  void publish(std::int32_t iteration, double error) noexcept;

  std::int32_t base_ = 0;                  // of the running solve; the solving thread's alone
  std::atomic<std::uint32_t> version_{0};  // odd while the pair below is being written
  std::atomic<std::int32_t> iteration_{-1};
  std::atomic<double> error_{0.0};
};

}  // namespace kx

#endif
