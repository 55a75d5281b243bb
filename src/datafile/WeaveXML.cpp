// SPDX-License-Identifier: BSD-3-Clause
#include "datafile/WeaveXML.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "datafile/CompositeXML.h"
#include "datafile/ConstituentXML.h"
#include "datafile/DecompositionXML.h"
#include "datafile/XmlElements.h"

namespace lamcraft {
namespace {

using States = std::vector<DamageStateRecord>;

/// Which decomposition block of a damage state a constituent belongs to.
enum class Block { unitCell, fillTow, warpTow };

constexpr const char* kNone = "";  ///< the parent of what stands in the environment itself

/// Where a constituent's element stands, and what it shows of the damage states.
struct ConstituentRow {
  const char* name;
  const char* parent;
  DamageSet set;
  Block block;
  std::size_t slot;
};

using namespace constituents;

/// In the order of the file, as far as they have the same parent.
constexpr std::array<ConstituentRow, 8> kConstituentRows{{
    {kMatrixPocket, kNone, DamageSet::matrixPocket, Block::unitCell, KX_CELL_POCKET},
    {kFill, kNone, DamageSet::fill, Block::unitCell, KX_CELL_FILL},
    {kWarp, kNone, DamageSet::warp, Block::unitCell, KX_CELL_WARP},
    {kInterface, kNone, DamageSet::interfaceLayer, Block::unitCell, KX_CELL_INTERFACE},
    {kFillFiber, kFill, DamageSet::fillFiber, Block::fillTow, KX_TOW_FIBER},
    {kFillMatrix, kFill, DamageSet::fillMatrix, Block::fillTow, KX_TOW_MATRIX},
    {kWarpFiber, kWarp, DamageSet::warpFiber, Block::warpTow, KX_TOW_FIBER},
    {kWarpMatrix, kWarp, DamageSet::warpMatrix, Block::warpTow, KX_TOW_MATRIX},
}};

constexpr bool everySetHasAConstituent() noexcept {
  std::array<std::size_t, kConstituentRows.size()> places{};
  for (std::size_t i = 0; i < places.size(); ++i) {
    places[i] = static_cast<std::size_t>(kConstituentRows[i].set) - 1;  // composite is the first
  }
  return isPermutation(places) && places.size() + 1 == KX_SET_COUNT;
}
static_assert(everySetHasAConstituent());

constexpr bool isTowMatrix(const DamageSet set) noexcept {
  return set == DamageSet::fillMatrix || set == DamageSet::warpMatrix;
}

const DecompositionSlot& slotOf(const DamageStateRecord& state, const ConstituentRow& row) {
  switch (row.block) {
    case Block::fillTow:
      return state.fillTow.at(row.slot);
    case Block::warpTow:
      return state.warpTow.at(row.slot);
    default:
      return state.unitCell.at(row.slot);
  }
}

void appendStates(TiXmlElement& element, const ConstituentRow& row, const States& states) {
  if (row.set != DamageSet::interfaceLayer) {  // the interface has no volume, hence no properties
    for (const DamageStateRecord& record : states) {
      xml::appendPropertySet(element, record.state, record.set(row.set));
    }
  }
  for (const DamageStateRecord& record : states) {
    xml::appendDecomposition(element, record.state, slotOf(record, row));
  }
}

}  // namespace

const States& WeaveXML::states(const EnvironmentRecord& environment) const noexcept {
  return fatigueMode() ? environment.fatigueDamageStates : environment.damageStates;
}

void WeaveXML::writeCompositeBlock(TiXmlElement& element,
                                   const EnvironmentRecord& environment) const {
  const States& all = states(environment);
  for (std::size_t i = 1; i < all.size(); ++i) {
    xml::appendPropertySet(element, all[i].state, all[i].set(DamageSet::composite));
  }
  xml::appendGroup(
      xml::appendElement(element, "failcoeffs"), kWeaveStrengthRows, environment.strengths);
  xml::appendSnRecords(element, environment.snRecords);
  xml::appendPrefail(element, composite().presence.nlShear, environment);
}

void WeaveXML::writeConstituentBlocks(TiXmlElement& element,
                                      const EnvironmentRecord& environment) const {
  writeConstituentsOf(kNone, element, environment);
}

void WeaveXML::writeConstituentsOf(const std::string_view owner,
                                   TiXmlElement& element,
                                   const EnvironmentRecord& environment) const {
  for (const ConstituentRow& row : kConstituentRows) {
    if (row.parent != owner) {
      continue;
    }
    TiXmlElement& block = xml::appendConstituent(element, composite().get(row.name));
    if (fatigueMode() && isTowMatrix(row.set) && xml::hasFatigueConstants(environment.resultRows)) {
      xml::appendFatigueConstants(block, environment.resultRows);
    }
    appendStates(block, row, states(environment));
    writeConstituentsOf(row.name, block, environment);
  }
}

}  // namespace lamcraft
