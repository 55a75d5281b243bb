// SPDX-License-Identifier: BSD-3-Clause
#include "datafile/ConstituentXML.h"

#include <cassert>
#include <cstddef>

#include "datafile/Tags.h"
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
  for (const Constituent* const child : constituent.children()) {
    appendConstituentTree(element, *child);
  }
}

bool hasFatigueConstants(const std::vector<ResultRow>& rows) noexcept {
  return rows.size() >= 2 && rows[0][0] > 0.0;
}

namespace {

void appendDirection(TiXmlNode& parent, const char* const tag, const ResultRow& constants) {
  TiXmlElement& direction = appendElement(parent, tag);
  for (std::size_t i = 0; i < constants.size(); ++i) {
    const auto& [group, name] = kFatigueConstantTags[i];
    if (group == nullptr) {
      appendNumber(direction, name, constants[i]);
      continue;
    }
    TiXmlElement* const last = direction.FirstChildElement(group);
    appendNumber(last == nullptr ? appendElement(direction, group) : *last, name, constants[i]);
  }
}

}  // namespace

void appendFatigueConstants(TiXmlNode& parent, const std::vector<ResultRow>& rows) {
  assert(hasFatigueConstants(rows));
  TiXmlElement& fatigue = appendElement(parent, "fatigue");
  for (std::size_t i = 0; i < kFatigueDirectionTags.size(); ++i) {
    appendDirection(fatigue, kFatigueDirectionTags[i], rows[i]);
  }
}

}  // namespace lamcraft::xml
