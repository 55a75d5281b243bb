// SPDX-License-Identifier: BSD-3-Clause
#include "folder/EnvironmentReading.h"

#include <array>
#include <cstddef>
#include <stdexcept>

#include "datafile/Tags.h"
#include "folder/ConstituentReading.h"
#include "folder/XmlReading.h"

namespace lamkit::xml {

namespace {

using lamcraft::xml::kFitTags;
using lamcraft::xml::kLaminateTags;
using lamcraft::xml::kShearLawTags;
using lamcraft::xml::kSnTags;

void readFits(const TiXmlElement& solver, EnvironmentData& environment) {
  for (const auto& row : kFitTags) {
    const bool isFatigue = &row == &kFitTags.back();
    if (isFatigue && solver.FirstChildElement(row.tag) == nullptr) {
      continue;
    }
    const TiXmlElement& fit = child(solver, row.tag);
    environment.errors.*row.initialError = number(fit, "initial");
    environment.errors.*row.finalError = number(fit, "final");
    environment.iterations.*row.iterations = integer(fit, "iterations");
    environment.hasFatigueFit = isFatigue;
  }
}

LaminateEntry readLaminate(const TiXmlElement& element) {
  LaminateEntry entry{text(element, "name"), {}};
  const TiXmlElement& strengthening = child(element, "thickness_strengthening");
  for (std::size_t i = 0; i < kLaminateTags.size(); ++i) {
    entry.coefficients[i] = number(strengthening, kLaminateTags[i]);
  }
  return entry;
}

/// What repeats others, such as those of direction 3, is left out.
void readStrengths(const TiXmlElement& element, const bool isWoven, EnvironmentData& environment) {
  const auto& rows = isWoven ? lamcraft::kWeaveStrengthRows : lamcraft::kUniStrengthRows;
  for (std::size_t i = 0; i < kStrengthCount; ++i) {
    environment.strengths[i] = childProperty(element, rows[i].tag);
  }
}

SnRecord readTest(const TiXmlElement& element) {
  SnRecord record{};
  for (const auto& [tag, value] : kSnTags) {
    record.*value = number(element, tag);
  }
  return record;
}

/// The properties of a group that is there or not as a whole.
template <std::size_t Count>
std::optional<std::array<VariableProperty, Count>> readGroup(
    const TiXmlElement& parent,
    const char* const tag,
    const std::array<lamcraft::GroupRow, Count>& rows) {
  const TiXmlElement* const element = parent.FirstChildElement(tag);
  if (element == nullptr) {
    return std::nullopt;
  }
  std::array<VariableProperty, Count> group;
  for (std::size_t i = 0; i < Count; ++i) {
    group[i] = childProperty(*element, rows[i].tag);
  }
  return group;
}

std::optional<ShearLaw> readShearLaw(const TiXmlElement& element) {
  if (text(element, "exists") != "yes") {
    return std::nullopt;
  }
  ShearLaw law;
  auto& [m, b, thr, c2mdeg] = law.constants;
  const std::array<double*, kShearLawTags.size()> places{
      &m, &b, &thr, &c2mdeg[0], &c2mdeg[1], &c2mdeg[2]};
  const TiXmlElement& constants = child(element, "sheardeg");
  for (std::size_t i = 0; i < places.size(); ++i) {
    *places[i] = number(constants, kShearLawTags[i]);
  }
  forEach(child(element, "shear_ss"), "pt", [&law](const TiXmlElement& point) {
    law.stress.push_back(number(point, "stress"));
    law.strain.push_back(number(point, "strain"));
  });
  return law;
}

void readComposite(const TiXmlElement& element, const bool isWoven, EnvironmentData& environment) {
  environment.composite = readStates(element);
  if (environment.composite.empty()) {
    throw Fault(element.Row(), "<composite> has no <props>");
  }
  readStrengths(child(element, "failcoeffs"), isWoven, environment);
  forEach(child(element, "fatigue"), "SN", [&environment](const TiXmlElement& test) {
    environment.snRecords.push_back(readTest(test));
  });
  environment.invariants = readGroup(element, "critical_invariants", lamcraft::kInvariantRows);
  environment.fracture = readGroup(element, "fracture", lamcraft::kFractureRows);
  environment.cohesive = readGroup(element, "cohesive", lamcraft::kCohesiveRows);
  environment.shearLaw = readShearLaw(child(element, "prefailNL"));
}

/// A material of this program has both, whatever it is.
void requirePhases(const EnvironmentData& environment, const TiXmlElement& element) {
  try {
    (void)environment.fiber();
    (void)environment.matrix();
  } catch (const std::out_of_range&) {
    throw Fault(element.Row(), "<environment> has no fiber or no matrix");
  }
}

}  // namespace

EnvironmentData readEnvironment(const TiXmlElement& element, const bool isWoven) {
  EnvironmentData environment;
  environment.temperature = number(element, "temperature");
  environment.moisture = text(element, "moisture");
  readFits(child(element, "solver"), environment);
  forEach(element, "laminate", [&environment](const TiXmlElement& laminate) {
    environment.laminates.push_back(readLaminate(laminate));
  });
  readComposite(child(element, "composite"), isWoven, environment);
  forEach(element, "constituent", [&environment](const TiXmlElement& constituent) {
    environment.constituents.push_back(readFittedConstituent(constituent));
  });
  requirePhases(environment, element);
  return environment;
}

}  // namespace lamkit::xml
