// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MATERIAL_KEYWORDTABLE_H
#define LAMCRAFT_MATERIAL_KEYWORDTABLE_H

#include <array>

#include "material/CompositeKeywords.h"
#include "material/EnvironmentKeywords.h"
#include "material/Interpretation.h"
#include "material/RunKeywords.h"

namespace lamcraft {

/// One keyword of the deck language.
struct KeywordRow {
  const char* name;
  KeywordHandler handler;  ///< null for VARIATION: the keywords before it install its reader
};

/// The keyword that every deck starts with, and the one whose meaning depends on its context.
inline constexpr const char* kMaterialKeyword = "MATERIAL";
inline constexpr const char* kVariationKeyword = "VARIATION";

/// The deck language.
inline constexpr std::array kKeywordRows{
    KeywordRow{kMaterialKeyword, keywords::onMaterial},
    KeywordRow{"FVF", keywords::onFiberVolumeFraction},
    KeywordRow{"BVF", keywords::onBundleVolumeFractions},
    KeywordRow{"DEGRADATION", keywords::onDegradation},
    KeywordRow{"ENVIRONMENT", keywords::onEnvironment},
    KeywordRow{"STRENGTHS", keywords::onStrengths},
    KeywordRow{"CRITICALINVARIANTS", keywords::onCriticalInvariants},
    KeywordRow{"LAMINA", keywords::onLamina},
    KeywordRow{"FIBER", keywords::onFiber},
    KeywordRow{"MATRIX", keywords::onMatrix},
    KeywordRow{"FRACTURE", keywords::onFracture},
    KeywordRow{"DELAM", keywords::onDelam},
    KeywordRow{"LAMINATE", keywords::onLaminate},
    KeywordRow{"FATIGUE", keywords::onFatigue},
    KeywordRow{"SNDATA", keywords::onSnData},
    KeywordRow{"NLSHEAR", keywords::onNonlinearShear},
    KeywordRow{"SOLVE", keywords::onSolve},
    KeywordRow{kVariationKeyword, nullptr},
};

}  // namespace lamcraft

#endif
