// SPDX-License-Identifier: BSD-3-Clause
#include "composite/UnitConversion.h"

#include <array>
#include <cstddef>

#include "model/PropertyTables.h"
#include "model/UnitFactors.h"

namespace lamcraft {

namespace {

template <std::size_t Count>
void scaleGroup(std::array<VariableProperty, Count>& group,
                const std::array<GroupRow, Count>& rows,
                const UnitFactors& factors) {
  for (std::size_t i = 0; i < Count; ++i) {
    group[i].scale(factorOf(rows[i].dimension, factors));
  }
}

void convertProperties(EnvironmentRecord& environment, const UnitFactors& factors) {
  environment.lamina.scaleWorking(factors);
  for (PropertySet* const set : {&environment.fiber, &environment.matrix}) {
    if (set->kind != PropertySet::Kind::systemDefaults) {
      set->scaleWorking(factors);
    }
    set->scaleVariables(factors);
  }
}

void convertEnvironment(EnvironmentRecord& environment, const UnitFactors& factors) {
  const double stress = factorOf(Dimension::stress, factors);
  environment.temperature *= factors.temperature;
  scaleGroup(environment.strengths, kUniStrengthRows, factors);
  for (SnRecord& record : environment.snRecords) {
    record.stress *= stress;
  }
  for (double& shearStress : environment.shearStress) {
    shearStress *= stress;
  }
  convertProperties(environment, factors);
  scaleGroup(environment.cohesive, kCohesiveRows, factors);
  scaleGroup(environment.fracture, kFractureRows, factors);
}

}  // namespace

void convertToBaseUnits(Composite& composite) {
  const UnitFactors factors = unitFactors(composite.unitSystem);
  composite.referenceTemperature.scale(factors.temperature);
  composite.plyThickness.scale(factors.length);
  composite.density *= factors.mass / (factors.length * factors.length * factors.length);
  for (EnvironmentRecord& environment : composite.environments) {
    convertEnvironment(environment, factors);
  }
}

}  // namespace lamcraft
