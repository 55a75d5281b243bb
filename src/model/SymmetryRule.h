// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MODEL_SYMMETRYRULE_H
#define LAMCRAFT_MODEL_SYMMETRYRULE_H

#include <array>

#include "model/PropertyTables.h"

namespace lamcraft {

/// Where one property of a set comes from.
struct PropertySource {
  enum class Kind {
    given,    ///< independent: stands on the deck's data line
    copied,   ///< equals another property, scatter included
    modulus,  ///< shear modulus in the plane of isotropy
  };
  Kind kind;
  Property from;  ///< the property copied; its own name for the other kinds
};

/// What a symmetry makes of the twelve properties. The given ones stand on the deck's data line in
/// property order.
struct SymmetryRule {
  std::array<PropertySource, kPropertyCount> sources;
  Property young;    ///< modulus and
  Property poisson;  ///< ratio of the plane of isotropy, G = E / (2 (v + 1))
};

/// The rule of a symmetry; any that is not isotropic or transversely isotropic is orthotropic.
[[nodiscard]] const SymmetryRule& symmetryRule(Symmetry symmetry) noexcept;

}  // namespace lamcraft

#endif
