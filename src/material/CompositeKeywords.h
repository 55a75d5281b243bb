#ifndef LAMCRAFT_MATERIAL_COMPOSITEKEYWORDS_H
#define LAMCRAFT_MATERIAL_COMPOSITEKEYWORDS_H

#include "material/Interpretation.h"

/// Handlers of the keywords that describe the composite as a whole.
namespace lamcraft::keywords {

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
