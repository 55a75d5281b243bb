// SPDX-License-Identifier: BSD-3-Clause
#include "material/CompositeKeywords.h"

#include <algorithm>
#include <memory>
#include <string>

#include "abqinp/InputFileException.h"
#include "composite/MicromechanicsCalls.h"
#include "composite/SatinWeave.h"
#include "composite/Uni.h"
#include "material/MaterialSystems.h"
#include "material/VariationReaders.h"
#include "model/LamcraftException.h"

namespace lamcraft::keywords {

namespace {

std::unique_ptr<Composite> makeComposite(const std::string& type, const ConstituentTypes& types) {
  const auto* const row =
      std::find_if(kTypes.begin(), kTypes.end(), [&](const TypeRow& r) { return r.name == type; });
  if (row == kTypes.end()) {
    throw LamcraftException("Invalid Material TYPE specified.");
  }
  if (row->harness == kUnidirectional) {
    return std::make_unique<Uni>(types.fiber, types.matrix);
  }
  return std::make_unique<SatinWeave>(types.fiber, types.matrix, row->harness);
}

void requireWeave(const Interpretation& interpretation) {
  if (!interpretation.composite().isWoven()) {
    throw abqinp::InputFileException::misplacedKeyword(interpretation.keyword().name());
  }
}

}  // namespace

void onMaterial(Interpretation& interpretation) {
  const abqinp::Keyword& keyword = interpretation.keyword();
  interpretation.installVariationReader(readMaterialVariation);
  interpretation.overwrite = keyword.hasParameter("OVERWRITE");
  const std::string type = keyword.parameterText("TYPE");
  const std::string system = keyword.parameterText("SYSTEM");
  interpretation.setComposite(makeComposite(type, constituentTypes(system)));

  Composite& composite = interpretation.composite();
  composite.materialName = keyword.parameterText("NAME");
  composite.unitSystem = keyword.intValue(0, 0, 1);
  composite.density = keyword.doubleValue(0, 1, 0.0);
  composite.plyThickness.setValue(keyword.doubleValue(0, 2, 0.0));
  composite.referenceTemperature.setValue(keyword.doubleValue(0, 3, 0.0));
  if (const auto code = materialSystemCode(system)) {
    composite.system = micromechanics::defaultProperties(*code, system);
  }
}

void onFiberVolumeFraction(Interpretation& interpretation) {
  interpretation.installVariationReader(readFiberVolumeFractionVariation);
  const double fraction = interpretation.keyword().requiredValue(0, 0);
  Composite& composite = interpretation.composite();
  const auto set = [&](const char* const name, const double value) {
    composite.get(name).volumeFraction.setValue(value);
  };
  using namespace constituents;
  if (composite.isWoven()) {
    set(kFillFiber, fraction);
    set(kFillMatrix, 1.0 - fraction);
    set(kWarpFiber, fraction);
    set(kWarpMatrix, 1.0 - fraction);
  } else {
    set(kFiber, fraction);
    set(kMatrix, 1.0 - fraction);
  }
}

void onBundleVolumeFractions(Interpretation& interpretation) {
  requireWeave(interpretation);
  const double fill = interpretation.keyword().requiredValue(0, 0);
  const double warp = interpretation.keyword().requiredValue(0, 1);
  Composite& composite = interpretation.composite();
  composite.get(constituents::kFill).volumeFraction.setValue(fill);
  composite.get(constituents::kWarp).volumeFraction.setValue(warp);
  composite.get(constituents::kMatrixPocket).volumeFraction.setValue(1.0 - fill - warp);
}

void onDegradation(Interpretation& interpretation) {
  requireWeave(interpretation);
  const abqinp::Keyword& keyword = interpretation.keyword();
  Composite& composite = interpretation.composite();
  using namespace constituents;
  double& matrix = composite.get(kFillMatrix).degradation;
  double& fiber = composite.get(kFillFiber).degradation;
  matrix = keyword.doubleValue(0, 0, matrix);
  fiber = keyword.doubleValue(0, 1, fiber);
  composite.get(kWarpMatrix).degradation = matrix;
  composite.get(kWarpFiber).degradation = fiber;
}

}  // namespace lamcraft::keywords
