#include "datafile/MaterialXML.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "datafile/ConstituentXML.h"
#include "datafile/XmlElements.h"
#include "datafile/XmlPrinting.h"

namespace lamcraft {
namespace {

using xml::appendElement;
using xml::appendInteger;
using xml::setNumber;

constexpr const char* kFormatVersion = "6.0";
constexpr std::int32_t kWovenCount = 3;  ///< reported constituents of a composite with a unit cell
constexpr std::int32_t kEffectiveSet = 1;

void appendFit(TiXmlElement& solver,
               const char* const tag,
               const double initialError,
               const double finalError,
               const std::int32_t iterations) {
  TiXmlElement& fit = appendElement(solver, tag);
  setNumber(fit, "initial", initialError);
  setNumber(fit, "final", finalError);
  fit.SetAttribute("iterations", iterations);
}

void appendLaminate(TiXmlElement& parent, const LaminateEntry& entry) {
  static constexpr std::array<const char*, 5> kNames{"c1", "c2", "c3", "c4", "c5"};
  TiXmlElement& laminate = appendElement(parent, "laminate");
  laminate.SetAttribute("name", entry.name.c_str());
  TiXmlElement& strengthening = appendElement(laminate, "thickness_strengthening");
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    setNumber(strengthening, kNames[i], entry.coefficients[i]);
  }
}

}  // namespace

MaterialXML::MaterialXML(const std::string& path) : TiXmlDocument(path) {}

bool MaterialXML::writeDocument(const Composite& composite, const bool fatigueMode) {
  composite_ = &composite;
  fatigueMode_ = fatigueMode;
  Clear();
  LinkEndChild(new TiXmlDeclaration("1.0", "utf-8", "yes"));
  TiXmlElement& root = appendElement(*this, "ZRN");
  root.SetAttribute("material", composite.materialName.c_str());
  root.SetAttribute("version", kFormatVersion);
  writeMaterial(root);
  for (const auto& constituent : composite.children()) {
    xml::appendConstituentTree(root, *constituent);
  }
  return save();
}

/// As SaveFile() does with the path, which does not look at how closing the file ends.
bool MaterialXML::save() const {
  std::FILE* const file = std::fopen(Value(), "w");
  if (file == nullptr) {
    return false;
  }
  const bool isWritten = SaveFile(file);
  return std::fclose(file) == 0 && isWritten;
}

void MaterialXML::Print(std::FILE* const file, const int /*depth*/) const {
  xml::Printer printer(file);
  printer.put(*FirstChild()->ToDeclaration());
  const TiXmlElement& root = *RootElement();
  printer.open(root, 0);
  for (const TiXmlElement* child = root.FirstChildElement(); child != nullptr;
       child = child->NextSiblingElement()) {
    printer.put(*child, 1);
  }
  for (const EnvironmentRecord& environment : composite().environments) {
    TiXmlElement element("environment");
    writeEnvironment(element, environment);
    printer.put(element, 1);
  }
  printer.close(root, 0);
  printer.finish();
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

void MaterialXML::writeEnvironment(TiXmlElement& element,
                                   const EnvironmentRecord& environment) const {
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
  const SolveErrors& errors = environment.errors;
  const SolveIterations& iterations = environment.iterations;
  TiXmlElement& solver = appendElement(element, "solver");
  appendFit(solver,
            "elastic_constants",
            errors.initialMechanical,
            errors.finalMechanical,
            iterations.mechanical);
  appendFit(
      solver, "thermal_expansion", errors.initialThermal, errors.finalThermal, iterations.thermal);
  if (fatigueMode()) {
    appendFit(solver, "fatigue", errors.initialFatigue, errors.finalFatigue, iterations.fatigue);
  }
}

}  // namespace lamcraft
