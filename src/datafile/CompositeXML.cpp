// SPDX-License-Identifier: BSD-3-Clause
#include "datafile/CompositeXML.h"

#include <array>
#include <cstddef>

#include "datafile/Tags.h"
#include "datafile/XmlElements.h"

namespace lamcraft::xml {

void appendSnRecords(TiXmlNode& parent, const std::vector<SnRecord>& records) {
  TiXmlElement& fatigue = appendElement(parent, "fatigue");
  for (const SnRecord& record : records) {
    TiXmlElement& test = appendElement(fatigue, "SN");
    for (const auto& [tag, value] : kSnTags) {
      setNumber(test, tag, record.*value);
    }
  }
}

namespace {

void appendShearLaw(TiXmlNode& parent, const PrefailConstants& constants) {
  TiXmlElement& law = appendElement(parent, "sheardeg");
  const auto& [m, b, thr, c2mdeg] = constants;
  const std::array<double, kShearLawTags.size()> values{m, b, thr, c2mdeg[0], c2mdeg[1], c2mdeg[2]};
  for (std::size_t i = 0; i < values.size(); ++i) {
    setNumber(law, kShearLawTags[i], values[i]);
  }
}

}  // namespace

void appendPrefail(TiXmlNode& parent, const bool wanted, const EnvironmentRecord& environment) {
  TiXmlElement& prefail = appendElement(parent, "prefailNL");
  if (!wanted || environment.shearStress.empty()) {
    prefail.SetAttribute("exists", "no");
    return;
  }
  prefail.SetAttribute("exists", "yes");
  appendShearLaw(prefail, environment.prefail);
  TiXmlElement& curve = appendElement(prefail, "shear_ss");
  for (std::size_t i = 0; i < environment.shearStrain.size(); ++i) {
    TiXmlElement& point = appendElement(curve, "pt");
    setNumber(point, "stress", environment.shearStress[i]);
    setNumber(point, "strain", environment.shearStrain[i]);
  }
}

}  // namespace lamcraft::xml
