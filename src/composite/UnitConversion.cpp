#include "composite/UnitConversion.h"

#include <array>
#include <cstddef>

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
  const double stress = factorOf(Dimension::stress, factors);
  const double expansion = factorOf(Dimension::inverseTemperature, factors);
  environment.lamina.scaleWorking(stress, expansion);
  for (PropertySet* const set : {&environment.fiber, &environment.matrix}) {
    if (set->kind != PropertySet::Kind::systemDefaults) {
      set->scaleWorking(stress, expansion);
    }
    set->scaleVariables(stress, expansion);
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

UnitFactors unitFactors(const std::int32_t unitSystem) noexcept {
  constexpr double kPoundForce = 4.4482216;
  constexpr double kRankineStep = 0.5555555555555556;
  constexpr double kPound = 0.45359237;
  switch (unitSystem) {
    case 2:
      return {1.0, 0.001, 1.0, 1.0};
    case 3:
      return {kPoundForce, 0.0254, kRankineStep, kPound};
    case 4:
      return {kPoundForce, 0.3048, kRankineStep, kPound};
    default:
      return {1.0, 1.0, 1.0, 1.0};
  }
}

double factorOf(const Dimension dimension, const UnitFactors& factors) noexcept {
  switch (dimension) {
    case Dimension::stress:
      return factors.force / (factors.length * factors.length);
    case Dimension::length:
      return factors.length;
    case Dimension::forcePerLength:
      return factors.force / factors.length;
    case Dimension::inverseTemperature:
      return 1.0 / factors.temperature;
    case Dimension::none:
      break;
  }
  return 1.0;
}

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
