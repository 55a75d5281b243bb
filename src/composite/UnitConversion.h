#ifndef LAMCRAFT_COMPOSITE_UNITCONVERSION_H
#define LAMCRAFT_COMPOSITE_UNITCONVERSION_H

#include <cstdint>

#include "composite/model/Composite.h"
#include "composite/model/PropertyTables.h"

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

/// Takes the composite and all its environments to base units, in place. Sets of a material
/// system's defaults keep their working values, which are in base units already.
void convertToBaseUnits(Composite& composite);

}  // namespace lamcraft

#endif
