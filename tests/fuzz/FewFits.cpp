// SPDX-License-Identifier: BSD-3-Clause
// Mutates inputs of the engine's contract so that one in sixteen has fits: else nearly all
// would, since fits reach the most code, and take nearly all of the time.

#include <cstddef>
#include <cstdint>

// NOLINTBEGIN(readability-identifier-naming): the names that libFuzzer defines and calls
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data,
                                               std::size_t size,
                                               std::size_t maxSize,
                                               unsigned seed);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* const data,
                                               const std::size_t size,
                                               const std::size_t maxSize,
                                               const unsigned seed) {
  constexpr unsigned kFitsOneIn = 16;
  const std::size_t mutated = LLVMFuzzerMutate(data, size, maxSize);
  if (mutated > 0) {
    data[0] = seed % kFitsOneIn == 0 ? 1 : 0;
  }
  return mutated;
}
// NOLINTEND(readability-identifier-naming)
