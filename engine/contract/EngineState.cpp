// SPDX-License-Identifier: BSD-3-Clause
#include "contract/EngineState.h"

#include <cmath>

namespace kx {

EngineState& EngineState::instance() noexcept {
  static EngineState state;
  return state;
}

void EngineState::setMaximumError(std::int32_t kind, std::int32_t selector, double error) noexcept {
  if (!std::isfinite(error) || error <= 0.0) {
    return;
  }
  const bool isUnidirectional = kind == static_cast<std::int32_t>(CompositeKind::unidirectional);
  if (!isUnidirectional && kind != static_cast<std::int32_t>(CompositeKind::woven)) {
    return;
  }
  auto& limits = isUnidirectional ? unidirectional_ : woven_;
  if (selector == 1) {
    limits.mechanical = error;
  } else if (selector == 2) {
    limits.thermal = error;
  }
}

MaximumErrors EngineState::maximumErrors(CompositeKind kind) const noexcept {
  const auto& limits = kind == CompositeKind::unidirectional ? unidirectional_ : woven_;
  return {limits.mechanical, limits.thermal};
}

std::optional<WeaveDecomposition> EngineState::takeIntactWeave() noexcept {
  auto weave = intactWeave_;
  intactWeave_.reset();
  return weave;
}

}  // namespace kx
