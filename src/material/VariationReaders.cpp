#include "material/VariationReaders.h"

#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "composite/Uni.h"
#include "variation/VariationReader.h"

namespace lamcraft::keywords {

namespace {

using Rows = std::vector<VariationReader::Row>;

bool isUnidirectional(const Material& material) {
  return dynamic_cast<const Uni*>(&material.composite()) != nullptr;
}

/// The properties of a group that the deck can vary.
template <std::size_t Count>
Rows rowsOf(const std::array<GroupRow, Count>& table, std::array<VariableProperty, Count>& group) {
  Rows rows;
  for (std::size_t i = 0; i < Count; ++i) {
    if (table[i].deckName != nullptr) {
      rows.push_back({table[i].deckName, {&group[i]}});
    }
  }
  return rows;
}

void readVariation(const Material& material, Rows rows) {
  VariationReader(std::move(rows)).read(material.keyword());
}

void readPropertySetVariation(const Material& material, PropertySet& set) {
  Rows rows;
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    rows.push_back({kPropertyRows[i].tag, {&set.variables()[i]}});
  }
  VariationReader(std::move(rows), [&set] { set.makeConsistent(); }).read(material.keyword());
}

}  // namespace

void readMaterialVariation(Material& material) {
  Composite& composite = material.composite();
  readVariation(
      material,
      {{"THICKNESS", {&composite.plyThickness}}, {"REFTEMP", {&composite.referenceTemperature}}});
}

void readFiberVolumeFractionVariation(Material& material) {
  const Composite& composite = material.composite();
  const auto fractionOf = [&](const char* const name) {
    return &composite.get(name).volumeFraction;
  };
  using namespace constituents;
  std::vector<VariableProperty*> fractions =
      isUnidirectional(material) ? std::vector{fractionOf(kFiber)}
                                 : std::vector{fractionOf(kFillFiber), fractionOf(kWarpFiber)};
  readVariation(material, {{"FVF", std::move(fractions)}});
}

void readFiberVariation(Material& material) {
  readPropertySetVariation(material, material.lastEnvironment().fiber);
}

void readMatrixVariation(Material& material) {
  readPropertySetVariation(material, material.lastEnvironment().matrix);
}

void readStrengthVariation(Material& material) {
  readVariation(material,
                rowsOf(isUnidirectional(material) ? kUniStrengthRows : kWeaveStrengthRows,
                       material.lastEnvironment().strengths));
}

void readInvariantVariation(Material& material) {
  readVariation(material, rowsOf(kInvariantRows, material.lastEnvironment().invariants));
}

void readFractureVariation(Material& material) {
  readVariation(material, rowsOf(kFractureRows, material.lastEnvironment().fracture));
}

void readCohesiveVariation(Material& material) {
  readVariation(material, rowsOf(kCohesiveRows, material.lastEnvironment().cohesive));
}

}  // namespace lamcraft::keywords
