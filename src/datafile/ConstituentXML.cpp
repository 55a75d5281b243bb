#include "datafile/ConstituentXML.h"

#include <cassert>

#include "datafile/XmlElements.h"

namespace lamcraft::xml {

TiXmlElement& appendConstituent(TiXmlNode& parent, const Constituent& constituent) {
  TiXmlElement& element = appendElement(parent, "constituent");
  element.SetAttribute("number", constituent.number());
  if (constituent.name() != constituents::kMatrixPocket) {
    element.SetAttribute("type", constituent.type().c_str());
  }
  appendElement(element, "name").SetAttribute("value", constituent.name().c_str());
  return element;
}

void appendConstituentTree(TiXmlNode& parent, const Constituent& constituent) {
  TiXmlElement& element = appendConstituent(parent, constituent);
  appendInteger(element, "ncons", reportedCount(constituent));
  appendProperty(element, "VF", constituent.volumeFraction);
  if (constituent.degradation > 0.0) {
    appendNumber(element, "degradation", constituent.degradation);
  }
  for (const auto& child : constituent.children()) {
    appendConstituentTree(element, *child);
  }
}

bool hasFatigueConstants(const std::vector<ResultRow>& rows) noexcept {
  return rows.size() >= 2 && rows[0][0] > 0.0;
}

namespace {

void appendDirection(TiXmlNode& parent, const char* const tag, const ResultRow& constants) {
  const auto [breakingU, healingU, breakingGamma, healingGamma, psi, k] = constants;
  TiXmlElement& direction = appendElement(parent, tag);
  TiXmlElement& u = appendElement(direction, "U");
  appendNumber(u, "breaking", breakingU);
  appendNumber(u, "healing", healingU);
  TiXmlElement& gamma = appendElement(direction, "gamma");
  appendNumber(gamma, "breaking", breakingGamma);
  appendNumber(gamma, "healing", healingGamma);
  appendNumber(direction, "Psi", psi);
  appendNumber(direction, "k", k);
}

}  // namespace

void appendFatigueConstants(TiXmlNode& parent, const std::vector<ResultRow>& rows) {
  assert(hasFatigueConstants(rows));
  TiXmlElement& fatigue = appendElement(parent, "fatigue");
  appendDirection(fatigue, "longitudinal", rows[0]);
  appendDirection(fatigue, "transverse", rows[1]);
}

}  // namespace lamcraft::xml
