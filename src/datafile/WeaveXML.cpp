#include "datafile/WeaveXML.h"

#include <array>
#include <cstddef>
#include <cstdint>
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

/// What a constituent's element shows of the damage states, and where it stands.
struct ConstituentRow {
  const char* name;
  DamageSet set;
  Block block;
};

/// In the order of the file. The rows of a tow block stand in the element of the tow before them.
constexpr std::array<ConstituentRow, 8> kConstituentRows{{
    {constituents::kMatrixPocket, DamageSet::matrixPocket, Block::unitCell},
    {constituents::kFill, DamageSet::fill, Block::unitCell},
    {constituents::kFillFiber, DamageSet::fillFiber, Block::fillTow},
    {constituents::kFillMatrix, DamageSet::fillMatrix, Block::fillTow},
    {constituents::kWarp, DamageSet::warp, Block::unitCell},
    {constituents::kWarpFiber, DamageSet::warpFiber, Block::warpTow},
    {constituents::kWarpMatrix, DamageSet::warpMatrix, Block::warpTow},
    {constituents::kInterface, DamageSet::interfaceLayer, Block::unitCell},
}};

constexpr bool isTowMatrix(const DamageSet set) noexcept {
  return set == DamageSet::fillMatrix || set == DamageSet::warpMatrix;
}

/// The slots of a block do not stand in the order of the numbers: number 2, the fiber of a tow or
/// the fill, comes before number 1, its matrix or the matrix pocket.
const DecompositionSlot& slotOf(const DamageStateData& data,
                                const Block block,
                                const std::int32_t number) noexcept {
  static constexpr std::array<std::size_t, 4> kSlotOfNumber{1, 0, 2, 3};
  const std::size_t slot = kSlotOfNumber.at(static_cast<std::size_t>(number - 1));
  switch (block) {
    case Block::fillTow:
      return data.fillTow.at(slot);
    case Block::warpTow:
      return data.warpTow.at(slot);
    default:
      return data.unitCell.at(slot);
  }
}

void appendStates(TiXmlElement& element,
                  const ConstituentRow& row,
                  const std::int32_t number,
                  const States& states) {
  if (row.set != DamageSet::interfaceLayer) {  // the interface has no volume, hence no properties
    for (const DamageStateRecord& state : states) {
      xml::appendPropertySet(element, state.data.state, state.property(row.set));
    }
  }
  for (const DamageStateRecord& state : states) {
    xml::appendDecomposition(element, state.data.state, slotOf(state.data, row.block, number));
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
    xml::appendPropertySet(element, all[i].data.state, all[i].property(DamageSet::composite));
  }
  TiXmlElement& coefficients = xml::appendElement(element, "failcoeffs");
  for (std::size_t i = 0; i < kStrengthCount; ++i) {
    xml::appendProperty(coefficients, kWeaveStrengthRows[i].tag, environment.strengths[i]);
  }
  xml::appendSnRecords(element, environment.snRecords);
  xml::appendPrefail(element, composite().presence.nlShear, environment);
}

void WeaveXML::writeConstituentBlocks(TiXmlElement& element,
                                      const EnvironmentRecord& environment) const {
  TiXmlElement* tow = &element;
  for (const ConstituentRow& row : kConstituentRows) {
    const bool inTow = row.block != Block::unitCell;
    const Constituent& constituent = composite().get(row.name);
    TiXmlElement& block = xml::appendConstituent(inTow ? *tow : element, constituent);
    if (!inTow) {
      tow = &block;
    }
    if (fatigueMode() && isTowMatrix(row.set) && xml::hasFatigueConstants(environment.resultRows)) {
      xml::appendFatigueConstants(block, environment.resultRows);
    }
    appendStates(block, row, constituent.number(), states(environment));
  }
}

}  // namespace lamcraft
