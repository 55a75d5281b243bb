// SPDX-License-Identifier: BSD-3-Clause
#include "contract/SolveStatus.h"

#include <algorithm>
#include <limits>

namespace kx {

void SolveStatus::publish(std::int32_t iteration, double error) noexcept {
  version_.fetch_add(1);
  iteration_.store(iteration);
  error_.store(error);
  version_.fetch_add(1);
}

void SolveStatus::begin() noexcept {
  constexpr auto kLast = std::numeric_limits<std::int32_t>::max();
  const auto last = iteration_.load();
  base_ = last < kLast ? last + 1 : last;
}

void SolveStatus::report(std::int32_t iteration, double error) noexcept {
  constexpr auto kLast = std::numeric_limits<std::int32_t>::max();
  const auto step = std::max(iteration, std::int32_t{0});
  const auto number = step <= kLast - base_ ? base_ + step : kLast;
  publish(std::max(number, iteration_.load()), error);
}

SolveStatus::Snapshot SolveStatus::snapshot() const noexcept {
  Snapshot result;
  std::uint32_t before = 0;
  do {
    before = version_.load();
    result = {iteration_.load(), error_.load()};
  } while (before % 2 != 0 || before != version_.load());
  return result;
}

}  // namespace kx
