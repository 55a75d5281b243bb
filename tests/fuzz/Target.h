// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_FUZZ_TARGET_H
#define LAMCRAFT_TESTS_FUZZ_TARGET_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// What a fuzzer calls with one input after the other, and the replay of a corpus as well. Each
/// target defines it once; it answers 0, and ends the process when the input shows a fault.
// NOLINTNEXTLINE(readability-identifier-naming): the name that libFuzzer calls
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace lamcraft::fuzz {

/// Ends the process with a text unless `holds`.
inline void require(const bool holds, const char* const fact) {
  if (!holds) {
    std::fprintf(stderr, "fault: not true that %s\n", fact);
    std::abort();
  }
}

}  // namespace lamcraft::fuzz

#endif
