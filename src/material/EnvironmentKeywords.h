// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MATERIAL_ENVIRONMENTKEYWORDS_H
#define LAMCRAFT_MATERIAL_ENVIRONMENTKEYWORDS_H

#include <array>
#include <string_view>

#include "material/Interpretation.h"
#include "model/PropertyTables.h"

/// Handlers of ENVIRONMENT and of the keywords that fill the last environment. The latter throw
/// the missing-parent exception when there is no environment yet.
namespace lamcraft::keywords {

/// The symmetries that LAW names.
struct LawRow {
  std::string_view name;
  Symmetry symmetry;
};
inline constexpr std::array<LawRow, 4> kLaws{{
    {"ISO", Symmetry::isotropic},
    {"TRANS12", Symmetry::transverse12},
    {"TRANS23", Symmetry::transverse23},
    {"ORTHO", Symmetry::orthotropic},
}};

/// ENVIRONMENT: appends an environment.
void onEnvironment(Interpretation& interpretation);

/// STRENGTHS: six required values.
void onStrengths(Interpretation& interpretation);

/// CRITICALINVARIANTS: six required values.
void onCriticalInvariants(Interpretation& interpretation);

/// LAMINA: the target properties, seven values or, for a weave, twelve.
void onLamina(Interpretation& interpretation);

/// FIBER: the start values, or the defaults of the material system.
void onFiber(Interpretation& interpretation);

/// MATRIX: the start values after the symmetry that LAW names, or the defaults of the system.
void onMatrix(Interpretation& interpretation);

/// FRACTURE: six values. Misplaced in a weave.
void onFracture(Interpretation& interpretation);

/// DELAM: fifteen cohesive values on two lines.
void onDelam(Interpretation& interpretation);

/// LAMINATE: a name and five coefficients.
void onLaminate(Interpretation& interpretation);

/// SNDATA: a fatigue test on every line; lines with less than one cycle are left out.
void onSnData(Interpretation& interpretation);

/// NLSHEAR: a point of the shear curve on every line, stress before strain.
void onNonlinearShear(Interpretation& interpretation);

}  // namespace lamcraft::keywords

#endif
