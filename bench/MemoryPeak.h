// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_BENCH_MEMORYPEAK_H
#define LAMCRAFT_BENCH_MEMORYPEAK_H

#include <cstddef>
#include <fstream>
#include <string>

/// The most memory that this process has held since start(), above what it held then. Linux counts
/// it; elsewhere bytes() is 0.
class MemoryPeak {
 public:
  MemoryPeak() {
    // "5" makes the kernel begin its count of the peak anew.
    std::ofstream("/proc/self/clear_refs") << "5";
    start_ = highWaterMark();
  }

  [[nodiscard]] std::size_t bytes() const { return highWaterMark() - start_; }

 private:
  static std::size_t highWaterMark() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
      std::size_t kilobytes = 0;
      if (word == "VmHWM:" && status >> kilobytes) {
        return 1024 * kilobytes;
      }
    }
    return 0;
  }

  std::size_t start_ = 0;
};

#endif
