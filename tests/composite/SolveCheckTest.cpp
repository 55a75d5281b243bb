// SPDX-License-Identifier: BSD-3-Clause
#include "composite/SolveCheck.h"

#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace lamcraft {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

EnvironmentRecord solved() {
  EnvironmentRecord environment("DRY", 300.0);
  environment.resultRows.resize(2);
  environment.damageStates = allDamageStates();
  environment.fatigueDamageStates = fatigueDamageStates();
  environment.shearStress = {1e6};
  return environment;
}

TEST(SolveCheck, TakesNumbers) {
  EXPECT_EQ(setWithoutNumbers(EnvironmentRecord("DRY", 300.0)), "");
  EXPECT_EQ(setWithoutNumbers(solved()), "");
}

TEST(SolveCheck, TakesInfinity) {
  EnvironmentRecord environment = solved();
  environment.matrix.working()[0] = std::numeric_limits<double>::infinity();
  EXPECT_EQ(setWithoutNumbers(environment), "");
}

TEST(SolveCheck, NamesTheSetThatHoldsNoNumber) {
  using Spoil = std::function<void(EnvironmentRecord&)>;
  const std::vector<std::pair<std::string, Spoil>> spoils = {
      {"lamina", [](EnvironmentRecord& e) { e.lamina.working()[0] = kNan; }},
      {"fiber", [](EnvironmentRecord& e) { e.fiber.working()[kPropertyCount - 1] = -kNan; }},
      {"matrix", [](EnvironmentRecord& e) { e.matrix.working()[5] = kNan; }},
      {"damage state 18",
       [](EnvironmentRecord& e) { e.damageStates.back().set(DamageSet::warpMatrix)[11] = kNan; }},
      {"damage state 1",
       [](EnvironmentRecord& e) {
         e.fatigueDamageStates.front().set(DamageSet::composite)[0] = kNan;
       }},
  };
  for (const auto& [name, spoil] : spoils) {
    EnvironmentRecord environment = solved();
    spoil(environment);
    EXPECT_EQ(setWithoutNumbers(environment), name);
  }
}

TEST(SolveCheck, LeavesAllElseToTheLibrary) {
  EnvironmentRecord environment = solved();
  environment.errors.finalThermal = kNan;
  environment.resultRows[1][5] = kNan;
  environment.prefail.m = kNan;
  environment.damageStates.front().unitCell.front().stress.front() = kNan;
  EXPECT_EQ(setWithoutNumbers(environment), "");
}

}  // namespace
}  // namespace lamcraft
