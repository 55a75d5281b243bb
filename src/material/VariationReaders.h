#ifndef LAMCRAFT_MATERIAL_VARIATIONREADERS_H
#define LAMCRAFT_MATERIAL_VARIATIONREADERS_H

#include "material/Material.h"

/// What VARIATION does after each of the keywords that define a group of properties: fills the
/// scatter of the property that PROP names. Throws std::invalid_argument for a PROP that is none of
/// the group's names. Per-environment groups are those of the last environment.
namespace lamcraft::keywords {

void readMaterialVariation(Material& material);
void readFiberVolumeFractionVariation(Material& material);
void readFiberVariation(Material& material);
void readMatrixVariation(Material& material);
void readStrengthVariation(Material& material);
void readInvariantVariation(Material& material);
void readFractureVariation(Material& material);
void readCohesiveVariation(Material& material);

}  // namespace lamcraft::keywords

#endif
