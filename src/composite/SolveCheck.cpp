// SPDX-License-Identifier: BSD-3-Clause
#include "composite/SolveCheck.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace lamcraft {

namespace {

bool areNumbers(const double* const properties) {
  return std::none_of(properties, properties + kPropertyCount, [](const double value) {
    return std::isnan(value);
  });
}

bool areNumbers(const DamageStateRecord& state) {
  return std::all_of(
      state.sets.begin(), state.sets.end(), [](const auto& set) { return areNumbers(set.data()); });
}

}  // namespace

std::string setWithoutNumbers(const EnvironmentRecord& environment) {
  if (!areNumbers(environment.lamina.working())) {
    return "lamina";
  }
  if (!areNumbers(environment.fiber.working())) {
    return "fiber";
  }
  if (!areNumbers(environment.matrix.working())) {
    return "matrix";
  }
  for (const auto* const states : {&environment.damageStates, &environment.fatigueDamageStates}) {
    for (const DamageStateRecord& state : *states) {
      if (!areNumbers(state)) {
        return "damage state " + std::to_string(state.state);
      }
    }
  }
  return {};
}

}  // namespace lamcraft
