// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MATERIAL_COMPOSITEKEYWORDS_H
#define LAMCRAFT_MATERIAL_COMPOSITEKEYWORDS_H

#include <array>
#include <cstdint>

#include "material/Interpretation.h"

/// Handlers of the keywords that describe the composite as a whole.
namespace lamcraft::keywords {

/// A type of composite; a unidirectional one has no harness.
struct TypeRow {
  const char* name;
  std::int32_t harness;
};
inline constexpr std::int32_t kUnidirectional = 0;

/// The types that TYPE of MATERIAL names.
inline constexpr std::array<TypeRow, 5> kTypes{{
    {"UNI", kUnidirectional},
    {"PLAINWEAVE", 1},
    {"4HSATIN", 4},
    {"5HSATIN", 5},
    {"8HSATIN", 8},
}};

/// MATERIAL: builds the composite, with its name, units and the defaults of its material system.
/// Throws LamcraftException for a TYPE that is none.
void onMaterial(Interpretation& interpretation);

/// FVF: fiber volume fraction of the composite or, for a weave, of both tows.
void onFiberVolumeFraction(Interpretation& interpretation);

/// BVF: volume fractions of fill and warp tows. Misplaced in a unidirectional composite.
void onBundleVolumeFractions(Interpretation& interpretation);

/// DEGRADATION: factors of failed matrix and fiber. Misplaced in a unidirectional composite.
void onDegradation(Interpretation& interpretation);

}  // namespace lamcraft::keywords

#endif
