#include "datafile/CompositeXML.h"

#include <cstddef>

#include "datafile/XmlElements.h"

namespace lamcraft::xml {

void appendSnRecords(TiXmlNode& parent, const std::vector<SnRecord>& records) {
  TiXmlElement& fatigue = appendElement(parent, "fatigue");
  for (const SnRecord& record : records) {
    TiXmlElement& test = appendElement(fatigue, "SN");
    setNumber(test, "stress", record.stress);
    setNumber(test, "life", record.life);
    setNumber(test, "f", record.frequency);
    setNumber(test, "R", record.ratio);
    setNumber(test, "theta", record.theta);
  }
}

namespace {

void appendShearLaw(TiXmlNode& parent, const PrefailConstants& constants) {
  TiXmlElement& law = appendElement(parent, "sheardeg");
  setNumber(law, "m", constants.m);
  setNumber(law, "b", constants.b);
  setNumber(law, "thr", constants.thr);
  setNumber(law, "c2mdeg0", constants.c2mdeg[0]);
  setNumber(law, "c2mdeg1", constants.c2mdeg[1]);
  setNumber(law, "c2mdeg2", constants.c2mdeg[2]);
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
