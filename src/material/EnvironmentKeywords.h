#ifndef LAMCRAFT_MATERIAL_ENVIRONMENTKEYWORDS_H
#define LAMCRAFT_MATERIAL_ENVIRONMENTKEYWORDS_H

#include "material/Material.h"

/// Handlers of ENVIRONMENT and of the keywords that fill the last environment. The latter throw
/// the missing-parent exception when there is no environment yet.
namespace lamcraft::keywords {

/// ENVIRONMENT: appends an environment.
void onEnvironment(Material& material);

/// STRENGTHS: six required values.
void onStrengths(Material& material);

/// CRITICALINVARIANTS: six required values.
void onCriticalInvariants(Material& material);

/// LAMINA: the target properties, seven values or, for a weave, twelve.
void onLamina(Material& material);

/// FIBER: the start values, or the defaults of the material system.
void onFiber(Material& material);

/// MATRIX: the start values after the symmetry that LAW names, or the defaults of the system.
void onMatrix(Material& material);

/// FRACTURE: six values. Misplaced in a weave.
void onFracture(Material& material);

/// DELAM: fifteen cohesive values on two lines.
void onDelam(Material& material);

/// LAMINATE: a name and five coefficients.
void onLaminate(Material& material);

/// SNDATA: a fatigue test on every line; lines with less than one cycle are left out.
void onSnData(Material& material);

/// NLSHEAR: a point of the shear curve on every line, stress before strain.
void onNonlinearShear(Material& material);

}  // namespace lamcraft::keywords

#endif
