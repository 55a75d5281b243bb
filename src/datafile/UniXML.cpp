// SPDX-License-Identifier: BSD-3-Clause
#include "datafile/UniXML.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "datafile/CompositeXML.h"
#include "datafile/ConstituentXML.h"
#include "datafile/XmlElements.h"

namespace lamcraft {
namespace {

constexpr std::int32_t kConstituentSet = 1;
constexpr std::int32_t kMatrixNumber = 1;

/// One element of "failcoeffs": a strength under its tag.
struct StrengthElement {
  const char* tag;
  std::size_t strength;
  std::size_t filePlace;
};

constexpr StrengthElement repeated(const char* const tag,
                                   const UniStrength strength,
                                   const std::size_t filePlace) noexcept {
  return {tag, static_cast<std::size_t>(strength), filePlace};
}

/// Direction 3 has no strengths of its own: it repeats direction 2, as transverse isotropy says.
constexpr std::array kRepeated{repeated("pS33", UniStrength::t2, 4),
                               repeated("nS33", UniStrength::c2, 5),
                               repeated("S13", UniStrength::s12, 7)};

/// All elements, in the order of the file.
constexpr std::array<StrengthElement, kStrengthCount + kRepeated.size()> strengthElements() {
  std::array<StrengthElement, kStrengthCount + kRepeated.size()> elements{};
  for (std::size_t i = 0; i < kStrengthCount; ++i) {
    const GroupRow& row = kUniStrengthRows[i];
    elements[row.filePlace] = {row.tag, i, row.filePlace};
  }
  for (const StrengthElement& element : kRepeated) {
    elements[element.filePlace] = element;
  }
  return elements;
}
constexpr auto kStrengthElements = strengthElements();

constexpr bool everyPlaceIsTaken() noexcept {
  for (const StrengthElement& element : kStrengthElements) {
    if (element.tag == nullptr) {
      return false;
    }
  }
  return true;
}
static_assert(everyPlaceIsTaken());

void appendStrengths(TiXmlElement& parent, const EnvironmentRecord& environment) {
  TiXmlElement& coefficients = xml::appendElement(parent, "failcoeffs");
  for (const StrengthElement& element : kStrengthElements) {
    xml::appendProperty(coefficients, element.tag, environment.strengths[element.strength]);
  }
}

}  // namespace

void UniXML::writeCompositeBlock(TiXmlElement& element,
                                 const EnvironmentRecord& environment) const {
  const KeywordPresence& presence = composite().presence;
  appendStrengths(element, environment);
  xml::appendSnRecords(element, environment.snRecords);
  // A composite without a dilatation has no critical invariants at all.
  if (environment.invariants.front().value() > 0.0) {
    xml::appendGroup(
        xml::appendElement(element, "critical_invariants"), kInvariantRows, environment.invariants);
  }
  if (presence.fracture) {
    xml::appendGroup(xml::appendElement(element, "fracture"), kFractureRows, environment.fracture);
  }
  if (presence.delam) {
    xml::appendGroup(xml::appendElement(element, "cohesive"), kCohesiveRows, environment.cohesive);
  }
  xml::appendPrefail(element, presence.nlShear, environment);
}

void UniXML::writeConstituentBlocks(TiXmlElement& element,
                                    const EnvironmentRecord& environment) const {
  writeConstituent(element, constituents::kMatrix, environment.matrix, environment);
  writeConstituent(element, constituents::kFiber, environment.fiber, environment);
}

void UniXML::writeConstituent(TiXmlElement& element,
                              const char* const name,
                              const PropertySet& properties,
                              const EnvironmentRecord& environment) const {
  const Constituent& constituent = composite().get(name);
  TiXmlElement& block = xml::appendConstituent(element, constituent);
  xml::appendPropertySet(block, kConstituentSet, properties);
  if (fatigueMode() && constituent.number() == kMatrixNumber &&
      xml::hasFatigueConstants(environment.resultRows)) {
    xml::appendFatigueConstants(block, environment.resultRows);
  }
}

}  // namespace lamcraft
