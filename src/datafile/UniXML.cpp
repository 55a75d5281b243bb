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

/// One element of "failcoeffs".
struct StrengthElement {
  const char* tag;
  UniStrength strength;
};

constexpr StrengthElement own(const UniStrength strength) noexcept {
  return {kUniStrengthRows[static_cast<std::size_t>(strength)].tag, strength};
}

/// Direction 3 has no strengths of its own: it repeats direction 2, as transverse isotropy says.
constexpr std::array<StrengthElement, 9> kStrengthElements{{
    own(UniStrength::t1),
    own(UniStrength::c1),
    own(UniStrength::t2),
    own(UniStrength::c2),
    {"pS33", UniStrength::t2},
    {"nS33", UniStrength::c2},
    own(UniStrength::s12),
    {"S13", UniStrength::s12},
    own(UniStrength::s23),
}};

/// The data file starts with the matrix, the deck with the fiber.
constexpr std::array<Fracture, kFractureCount> kFractureOrder{
    Fracture::gmC, Fracture::gmnC, Fracture::gmsC, Fracture::alpha, Fracture::gftC, Fracture::gfcC};

void appendStrengths(TiXmlElement& parent, const EnvironmentRecord& environment) {
  TiXmlElement& coefficients = xml::appendElement(parent, "failcoeffs");
  for (const auto& [tag, strength] : kStrengthElements) {
    xml::appendProperty(
        coefficients, tag, environment.strengths[static_cast<std::size_t>(strength)]);
  }
}

void appendInvariants(TiXmlElement& parent, const EnvironmentRecord& environment) {
  if (!(environment.invariants.front().value() > 0.0)) {
    return;  // a composite without a dilatation has no critical invariants at all
  }
  TiXmlElement& invariants = xml::appendElement(parent, "critical_invariants");
  for (std::size_t i = 0; i < kInvariantCount; ++i) {
    xml::appendProperty(invariants, kInvariantRows[i].tag, environment.invariants[i]);
  }
}

void appendFracture(TiXmlElement& parent, const EnvironmentRecord& environment) {
  TiXmlElement& fracture = xml::appendElement(parent, "fracture");
  for (const Fracture property : kFractureOrder) {
    const auto i = static_cast<std::size_t>(property);
    xml::appendProperty(fracture, kFractureRows[i].tag, environment.fracture[i]);
  }
}

void appendCohesive(TiXmlElement& parent, const EnvironmentRecord& environment) {
  TiXmlElement& cohesive = xml::appendElement(parent, "cohesive");
  for (std::size_t i = 0; i < kCohesiveCount; ++i) {
    xml::appendProperty(cohesive, kCohesiveRows[i].tag, environment.cohesive[i]);
  }
}

}  // namespace

void UniXML::writeCompositeBlock(TiXmlElement& element,
                                 const EnvironmentRecord& environment) const {
  const KeywordPresence& presence = composite().presence;
  appendStrengths(element, environment);
  xml::appendSnRecords(element, environment.snRecords);
  appendInvariants(element, environment);
  if (presence.fracture) {
    appendFracture(element, environment);
  }
  if (presence.delam) {
    appendCohesive(element, environment);
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
