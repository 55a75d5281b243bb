// SPDX-License-Identifier: BSD-3-Clause
#include "weave/geometry/InterlacingPattern.h"

#include <cstddef>
#include <utility>

namespace kx {

namespace {

// The fill tow that each warp tow of the repeat passes over; empty for an unknown satin.
std::vector<int> overWarpFloats(const int harness) {
  switch (harness) {
    case 4:
      return {0, 1, 3, 2};
    case 5:
      return {0, 2, 4, 1, 3};
    case 8:
      return {0, 3, 6, 1, 4, 7, 2, 5};
    default:
      return {};
  }
}

int wrapped(const int index, const int count) {
  return ((index % count) + count) % count;
}

}  // namespace

InterlacingPattern::InterlacingPattern(const int tows, std::vector<int> side)
    : tows_(tows), side_(std::move(side)) {}

std::optional<InterlacingPattern> InterlacingPattern::ofHarness(const int harness) {
  if (harness < 2) {
    return InterlacingPattern(2, {1, -1, -1, 1});
  }
  const std::vector<int> floats = overWarpFloats(harness);
  if (floats.empty()) {
    return std::nullopt;
  }
  const auto tows = floats.size();
  std::vector<int> side(tows * tows, 1);
  for (std::size_t warp = 0; warp < tows; ++warp) {
    side[warp * tows + static_cast<std::size_t>(floats[warp])] = -1;
  }
  return InterlacingPattern(static_cast<int>(tows), std::move(side));
}

int InterlacingPattern::side(const int warp, const int fill) const {
  const auto row = static_cast<std::size_t>(wrapped(warp, tows_));
  const auto column = static_cast<std::size_t>(wrapped(fill, tows_));
  return side_[row * static_cast<std::size_t>(tows_) + column];
}

bool InterlacingPattern::isKeptBy(const Exchange& exchange) const {
  for (int warp = 0; warp < tows_; ++warp) {
    for (int fill = 0; fill < tows_; ++fill) {
      const int warpImage = fill + exchange.warpShift;
      const int fillImage = exchange.mirror * warp + exchange.fillShift;
      if (side(warpImage, fillImage) != side(warp, fill)) {
        return false;
      }
    }
  }
  return true;
}

bool InterlacingPattern::isKeptByStep(const int step) const {
  for (int warp = 0; warp < tows_; ++warp) {
    for (int fill = 0; fill < tows_; ++fill) {
      if (side(warp + 1, fill + step) != side(warp, fill)) {
        return false;
      }
    }
  }
  return true;
}

std::optional<int> InterlacingPattern::step() const {
  for (int step = 0; step < tows_; ++step) {
    if (isKeptByStep(step)) {
      return step;
    }
  }
  return std::nullopt;
}

InterlacingPattern::Exchange InterlacingPattern::exchange() const {
  for (const int mirror : {1, -1}) {
    for (int shift = 0; shift < tows_ * tows_; ++shift) {
      const Exchange candidate{mirror, shift / tows_, shift % tows_};
      if (isKeptBy(candidate)) {
        return candidate;
      }
    }
  }
  return {};
}

}  // namespace kx
