#ifndef LAMCRAFT_MATERIAL_KEYWORDTABLE_H
#define LAMCRAFT_MATERIAL_KEYWORDTABLE_H

#include <array>

#include "material/CompositeKeywords.h"
#include "material/EnvironmentKeywords.h"
#include "material/Material.h"
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
inline constexpr std::array<KeywordRow, 18> kKeywordRows{{
    {kMaterialKeyword, keywords::onMaterial},
    {"FVF", keywords::onFiberVolumeFraction},
    {"BVF", keywords::onBundleVolumeFractions},
    {"DEGRADATION", keywords::onDegradation},
    {"ENVIRONMENT", keywords::onEnvironment},
    {"STRENGTHS", keywords::onStrengths},
    {"CRITICALINVARIANTS", keywords::onCriticalInvariants},
    {"LAMINA", keywords::onLamina},
    {"FIBER", keywords::onFiber},
    {"MATRIX", keywords::onMatrix},
    {"FRACTURE", keywords::onFracture},
    {"DELAM", keywords::onDelam},
    {"LAMINATE", keywords::onLaminate},
    {"FATIGUE", keywords::onFatigue},
    {"SNDATA", keywords::onSnData},
    {"NLSHEAR", keywords::onNonlinearShear},
    {"SOLVE", keywords::onSolve},
    {kVariationKeyword, nullptr},
}};

}  // namespace lamcraft

#endif
