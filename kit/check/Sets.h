// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_SETS_H
#define LAMKIT_CHECK_SETS_H

#include <array>
#include <cstddef>
#include <string>

#include "check/Ranges.h"
#include "check/Reading.h"
#include "check/Report.h"
#include "elastic/Properties.h"
#include "lamina/UnidirectionalLamina.h"
#include "model/PropertySet.h"

namespace lamkit {

/// One property set of an environment with its keyword: as the deck has it and in base units.
struct SetView {
  const char* title;  ///< "LAMINA"
  SetKind kind;
  const abqinp::Keyword* keyword;  ///< null when the deck has none; not one with DEFAULT
  const lamcraft::PropertySet* set;
  kx::Properties base;  ///< in Pa and 1/K
  std::size_t environment;

  /// The place of a property: of its value, or of the keyword where it is derived.
  [[nodiscard]] Spot spotOf(lamcraft::Property property) const;
  /// As the deck has it.
  [[nodiscard]] double value(lamcraft::Property property) const { return set->working(property); }
};

/// Whether a property of the set lies in the usual range of the material system.
[[nodiscard]] bool isUsual(const SetView& view,
                           lamcraft::Property property,
                           const Families& families);

/// The three sets of an environment.
struct SetViews {
  SetView lamina;
  SetView fiber;
  SetView matrix;
};

[[nodiscard]] SetViews setViews(const Reading& reading, const EnvironmentKeywords& environment);

/// The start values as the fit takes them.
struct StartValues {
  kx::TransverselyIsotropic fiber;
  kx::TransverselyIsotropic matrix;
};
[[nodiscard]] StartValues startValues(const SetViews& views);

}  // namespace lamkit

#endif
