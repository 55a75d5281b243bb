// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MODEL_UNITFACTORS_H
#define LAMCRAFT_MODEL_UNITFACTORS_H

#include <cstdint>

#include "model/PropertyTables.h"

namespace lamcraft {

/// What takes a deck's values to base units (N, m, K, kg) by multiplication.
struct UnitFactors {
  double force;
  double length;
  double temperature;
  double mass;
};

/// The factors of a unit system: 2 N and mm, 3 pound-force and inch, 4 pound-force and foot, both
/// with Rankine and pound; any other code means base units already.
[[nodiscard]] UnitFactors unitFactors(std::int32_t unitSystem) noexcept;

/// The factor of a derived dimension.
[[nodiscard]] double factorOf(Dimension dimension, const UnitFactors& factors) noexcept;

}  // namespace lamcraft

#endif
