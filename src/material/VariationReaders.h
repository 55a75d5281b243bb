// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MATERIAL_VARIATIONREADERS_H
#define LAMCRAFT_MATERIAL_VARIATIONREADERS_H

#include "material/Interpretation.h"

/// What VARIATION does after each of the keywords that define a group of properties: fills the
/// scatter of the property that PROP names. Throws std::invalid_argument for a PROP that is none of
/// the group's names. Per-environment groups are those of the last environment.
namespace lamcraft::keywords {

void readMaterialVariation(Interpretation& interpretation);
void readFiberVolumeFractionVariation(Interpretation& interpretation);
void readFiberVariation(Interpretation& interpretation);
void readMatrixVariation(Interpretation& interpretation);
void readStrengthVariation(Interpretation& interpretation);
void readInvariantVariation(Interpretation& interpretation);
void readFractureVariation(Interpretation& interpretation);
void readCohesiveVariation(Interpretation& interpretation);

}  // namespace lamcraft::keywords

#endif
