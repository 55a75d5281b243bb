// SPDX-License-Identifier: BSD-3-Clause
#include "material/VariationReaders.h"

#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "variation/VariationReader.h"

namespace lamcraft::keywords {

namespace {

using Rows = std::vector<VariationReader::Row>;

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

void readVariation(const Interpretation& interpretation, Rows rows) {
  VariationReader(std::move(rows)).read(interpretation.keyword());
}

void readPropertySetVariation(const Interpretation& interpretation, PropertySet& set) {
  Rows rows;
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    rows.push_back({kPropertyRows[i].tag, {&set.variables()[i]}});
  }
  VariationReader(std::move(rows), [&set] { set.makeConsistent(); }).read(interpretation.keyword());
}

}  // namespace

void readMaterialVariation(Interpretation& interpretation) {
  Composite& composite = interpretation.composite();
  readVariation(
      interpretation,
      {{"THICKNESS", {&composite.plyThickness}}, {"REFTEMP", {&composite.referenceTemperature}}});
}

void readFiberVolumeFractionVariation(Interpretation& interpretation) {
  Composite& composite = interpretation.composite();
  const auto fractionOf = [&](const char* const name) {
    return &composite.get(name).volumeFraction;
  };
  using namespace constituents;
  std::vector<VariableProperty*> fractions =
      composite.isWoven() ? std::vector{fractionOf(kFillFiber), fractionOf(kWarpFiber)}
                          : std::vector{fractionOf(kFiber)};
  readVariation(interpretation, {{"FVF", std::move(fractions)}});
}

void readFiberVariation(Interpretation& interpretation) {
  readPropertySetVariation(interpretation, interpretation.lastEnvironment().fiber);
}

void readMatrixVariation(Interpretation& interpretation) {
  readPropertySetVariation(interpretation, interpretation.lastEnvironment().matrix);
}

void readStrengthVariation(Interpretation& interpretation) {
  readVariation(interpretation,
                rowsOf(interpretation.composite().isWoven() ? kWeaveStrengthRows : kUniStrengthRows,
                       interpretation.lastEnvironment().strengths));
}

void readInvariantVariation(Interpretation& interpretation) {
  readVariation(interpretation,
                rowsOf(kInvariantRows, interpretation.lastEnvironment().invariants));
}

void readFractureVariation(Interpretation& interpretation) {
  readVariation(interpretation, rowsOf(kFractureRows, interpretation.lastEnvironment().fracture));
}

void readCohesiveVariation(Interpretation& interpretation) {
  readVariation(interpretation, rowsOf(kCohesiveRows, interpretation.lastEnvironment().cohesive));
}

}  // namespace lamcraft::keywords
