// SPDX-License-Identifier: BSD-3-Clause
// lamkit's check on any bytes: it ends, every finding stands in the deck, and a deck that the
// program refuses has an error.

#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/Target.h"
#include "kit/check/support/CheckPromises.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* const data, const std::size_t size) {
  const std::string promise = lamkit::test::brokenPromise(std::string(data, data + size));
  lamcraft::fuzz::require(promise.empty(), promise.c_str());
  return 0;
}
