// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MATERIAL_RUNKEYWORDS_H
#define LAMCRAFT_MATERIAL_RUNKEYWORDS_H

#include "material/Interpretation.h"

/// Handlers of the keywords that steer the run.
namespace lamcraft::keywords {

/// SOLVE: parent folder of the material folder, and the maximum errors, which the library gets at
/// once.
void onSolve(Interpretation& interpretation);

/// FATIGUE: decks may carry it; it means nothing.
void onFatigue(Interpretation& interpretation);

}  // namespace lamcraft::keywords

#endif
