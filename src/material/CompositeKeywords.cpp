#include "material/CompositeKeywords.h"

#include <algorithm>
#include <array>
#include <cstdint>
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

/// The composites that TYPE names; a unidirectional one has no harness.
struct TypeRow {
  const char* name;
  std::int32_t harness;
};
constexpr std::int32_t kUnidirectional = 0;
constexpr std::array<TypeRow, 5> kTypes{{
    {"UNI", kUnidirectional},
    {"PLAINWEAVE", 1},
    {"4HSATIN", 4},
    {"5HSATIN", 5},
    {"8HSATIN", 8},
}};

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

KeywordPresence presenceIn(const abqinp::InputFile& deck) {
  const auto has = [&](const char* const name) { return deck.countKeywords(name) > 0; };
  return {has("VARIATION"), has("FRACTURE"), has("DELAM"), has("SNDATA"), has("NLSHEAR")};
}

void requireWeave(const Material& material) {
  if (dynamic_cast<const SatinWeave*>(&material.composite()) == nullptr) {
    throw abqinp::InputFileException::misplacedKeyword(material.keyword().name());
  }
}

}  // namespace

void onMaterial(Material& material) {
  const abqinp::Keyword& keyword = material.keyword();
  material.installVariationReader(readMaterialVariation);
  material.overwrite = keyword.hasParameter("OVERWRITE");
  const std::string type = keyword.parameterText("TYPE");
  const std::string system = keyword.parameterText("SYSTEM");
  material.setComposite(makeComposite(type, constituentTypes(system)));

  Composite& composite = material.composite();
  composite.presence = presenceIn(material);
  composite.materialName = keyword.parameterText("NAME");
  composite.unitSystem = keyword.intValue(0, 0, 1);
  composite.density = keyword.doubleValue(0, 1, 0.0);
  composite.plyThickness.setValue(keyword.doubleValue(0, 2, 0.0));
  composite.referenceTemperature.setValue(keyword.doubleValue(0, 3, 0.0));
  if (const auto code = materialSystemCode(system)) {
    composite.system = micromechanics::defaultProperties(*code, system);
  }
}

void onFiberVolumeFraction(Material& material) {
  material.installVariationReader(readFiberVolumeFractionVariation);
  const double fraction = material.keyword().requiredValue(0, 0);
  const Composite& composite = material.composite();
  const auto set = [&](const char* const name, const double value) {
    composite.get(name).volumeFraction.setValue(value);
  };
  using namespace constituents;
  if (dynamic_cast<const Uni*>(&composite) != nullptr) {
    set(kFiber, fraction);
    set(kMatrix, 1.0 - fraction);
  } else {
    set(kFillFiber, fraction);
    set(kFillMatrix, 1.0 - fraction);
    set(kWarpFiber, fraction);
    set(kWarpMatrix, 1.0 - fraction);
  }
}

void onBundleVolumeFractions(Material& material) {
  requireWeave(material);
  const double fill = material.keyword().requiredValue(0, 0);
  const double warp = material.keyword().requiredValue(0, 1);
  const Composite& composite = material.composite();
  composite.get(constituents::kFill).volumeFraction.setValue(fill);
  composite.get(constituents::kWarp).volumeFraction.setValue(warp);
  composite.get(constituents::kMatrixPocket).volumeFraction.setValue(1.0 - fill - warp);
}

void onDegradation(Material& material) {
  requireWeave(material);
  const abqinp::Keyword& keyword = material.keyword();
  const Composite& composite = material.composite();
  using namespace constituents;
  double& matrix = composite.get(kFillMatrix).degradation;
  double& fiber = composite.get(kFillFiber).degradation;
  matrix = keyword.doubleValue(0, 0, matrix);
  fiber = keyword.doubleValue(0, 1, fiber);
  composite.get(kWarpMatrix).degradation = matrix;
  composite.get(kWarpFiber).degradation = fiber;
}

}  // namespace lamcraft::keywords
