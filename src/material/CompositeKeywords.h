#ifndef LAMCRAFT_MATERIAL_COMPOSITEKEYWORDS_H
#define LAMCRAFT_MATERIAL_COMPOSITEKEYWORDS_H

#include "material/Material.h"

/// Handlers of the keywords that describe the composite as a whole.
namespace lamcraft::keywords {

/// MATERIAL: builds the composite, with its name, units and the defaults of its material system.
/// Throws LamcraftException for a TYPE that is none.
void onMaterial(Material& material);

/// FVF: fiber volume fraction of the composite or, for a weave, of both tows.
void onFiberVolumeFraction(Material& material);

/// BVF: volume fractions of fill and warp tows. Misplaced in a unidirectional composite.
void onBundleVolumeFractions(Material& material);

/// DEGRADATION: factors of failed matrix and fiber. Misplaced in a unidirectional composite.
void onDegradation(Material& material);

}  // namespace lamcraft::keywords

#endif
