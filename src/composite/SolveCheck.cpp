#include "composite/SolveCheck.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace lamcraft {

namespace {

bool isNumber(const double value) {
  return !std::isnan(value);
}

template <std::size_t count>
bool areNumbers(const std::array<double, count>& values) {
  return std::all_of(values.begin(), values.end(), isNumber);
}

bool areNumbers(const PropertySet& properties) {
  return std::all_of(properties.working(), properties.working() + kPropertyCount, isNumber);
}

bool areNumbers(const SolveErrors& errors) {
  return areNumbers(std::array<double, 6>{errors.initialMechanical,
                                          errors.finalMechanical,
                                          errors.initialThermal,
                                          errors.finalThermal,
                                          errors.initialFatigue,
                                          errors.finalFatigue});
}

bool areNumbers(const PrefailConstants& constants) {
  return areNumbers(std::array<double, 3>{constants.m, constants.b, constants.thr}) &&
         areNumbers(constants.c2mdeg);
}

bool areNumbers(const DamageStateRecord& state) {
  return std::all_of(state.data.sets.begin(), state.data.sets.end(), [](const auto& set) {
    return areNumbers(set);
  });
}

}  // namespace

bool holdsNumbers(const EnvironmentRecord& environment) {
  const auto& rows = environment.resultRows;
  const auto& states = environment.damageStates;
  return areNumbers(environment.errors) && areNumbers(environment.lamina) &&
         areNumbers(environment.fiber) && areNumbers(environment.matrix) &&
         (environment.shearStress.empty() || areNumbers(environment.prefail)) &&
         std::all_of(rows.begin(), rows.end(), [](const auto& row) { return areNumbers(row); }) &&
         std::all_of(
             states.begin(), states.end(), [](const auto& state) { return areNumbers(state); });
}

}  // namespace lamcraft
