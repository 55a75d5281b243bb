// SPDX-License-Identifier: BSD-3-Clause
#include "datafile/MaterialXML.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "datafile/ConstituentXML.h"
#include "datafile/Tags.h"
#include "datafile/XmlElements.h"

namespace lamcraft {
namespace {

using xml::appendElement;
using xml::appendInteger;
using xml::setNumber;

constexpr std::int32_t kWovenCount = 3;  ///< reported constituents of a composite with a unit cell
constexpr std::int32_t kEffectiveSet = 1;

void appendFit(TiXmlElement& solver, const xml::FitTag& row, const EnvironmentRecord& environment) {
  TiXmlElement& fit = appendElement(solver, row.tag);
  setNumber(fit, "initial", environment.errors.*row.initialError);
  setNumber(fit, "final", environment.errors.*row.finalError);
  fit.SetAttribute("iterations", environment.iterations.*row.iterations);
}

void appendLaminate(TiXmlElement& parent, const LaminateEntry& entry) {
  TiXmlElement& laminate = appendElement(parent, "laminate");
  laminate.SetAttribute("name", entry.name.c_str());
  TiXmlElement& strengthening = appendElement(laminate, "thickness_strengthening");
  for (std::size_t i = 0; i < xml::kLaminateTags.size(); ++i) {
    setNumber(strengthening, xml::kLaminateTags[i], entry.coefficients[i]);
  }
}

}  // namespace

MaterialXML::MaterialXML(const std::string& path) : TiXmlDocument(path) {}

bool MaterialXML::writeDocument(const Composite& composite, const bool fatigueMode) {
  composite_ = &composite;
  fatigueMode_ = fatigueMode;
  Clear();
  LinkEndChild(new TiXmlDeclaration("1.0", "utf-8", "yes"));
  TiXmlElement& root = appendElement(*this, xml::kRoot);
  root.SetAttribute("material", composite.materialName.c_str());
  root.SetAttribute("version", xml::kFormatVersion);
  writeMaterial(root);
  for (const Constituent* const constituent : composite.children()) {
    xml::appendConstituentTree(root, *constituent);
  }
  for (const EnvironmentRecord& environment : composite.environments) {
    writeEnvironment(root, environment);
  }
  return save();
}

/// SaveFile() with the path does not look at how closing the file ends, which may be the first to
/// learn of a full disk.
bool MaterialXML::save() const {
  std::FILE* const file = std::fopen(Value(), "w");
  if (file == nullptr) {
    return false;
  }
  const bool isWritten = SaveFile(file);
  return std::fclose(file) == 0 && isWritten;
}

void MaterialXML::writeMaterial(TiXmlElement& root) const {
  TiXmlElement& element = appendElement(root, "composite");
  xml::appendNumber(element, "density", composite().density);
  const std::int32_t count = reportedCount(composite());
  appendInteger(element, "ncons", count);
  if (count == kWovenCount) {
    appendInteger(element, "unitcell", 1);
    appendInteger(element, "nharness", composite().harness());
  }
  xml::appendProperty(element, "tref", composite().referenceTemperature);
  xml::appendProperty(element, "plyt", composite().plyThickness);
}

void MaterialXML::writeEnvironment(TiXmlElement& root, const EnvironmentRecord& environment) const {
  TiXmlElement& element = appendElement(root, "environment");
  setNumber(element, "temperature", environment.temperature);
  element.SetAttribute("moisture", environment.moisture->name);
  writeSolver(element, environment);
  for (const LaminateEntry& laminate : environment.laminates) {
    appendLaminate(element, laminate);
  }
  TiXmlElement& effective = appendElement(element, "composite");
  xml::appendPropertySet(effective, kEffectiveSet, environment.lamina);
  writeCompositeBlock(effective, environment);
  writeConstituentBlocks(element, environment);
}

void MaterialXML::writeSolver(TiXmlElement& element, const EnvironmentRecord& environment) const {
  TiXmlElement& solver = appendElement(element, "solver");
  const std::size_t count = xml::kFitTags.size() - (fatigueMode() ? 0 : 1);
  for (std::size_t i = 0; i < count; ++i) {
    appendFit(solver, xml::kFitTags[i], environment);
  }
}

}  // namespace lamcraft
