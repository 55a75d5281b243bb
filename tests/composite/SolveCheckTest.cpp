#include "composite/SolveCheck.h"

#include <functional>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

namespace lamcraft {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

EnvironmentRecord solved() {
  EnvironmentRecord environment("DRY", 300.0);
  environment.resultRows.resize(2);
  environment.damageStates = allDamageStates();
  environment.shearStress = {1e6};
  return environment;
}

TEST(SolveCheck, TakesNumbers) {
  EXPECT_TRUE(holdsNumbers(EnvironmentRecord("DRY", 300.0)));
  EXPECT_TRUE(holdsNumbers(solved()));
}

TEST(SolveCheck, TakesInfinity) {
  EnvironmentRecord environment = solved();
  environment.errors.finalThermal = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(holdsNumbers(environment));
}

TEST(SolveCheck, FindsWhatIsNoNumber) {
  using Spoil = std::function<void(EnvironmentRecord&)>;
  const std::vector<Spoil> spoils = {
      [](EnvironmentRecord& e) { e.errors.initialMechanical = kNan; },
      [](EnvironmentRecord& e) { e.errors.finalFatigue = kNan; },
      [](EnvironmentRecord& e) { e.lamina.working()[0] = kNan; },
      [](EnvironmentRecord& e) { e.fiber.working()[kPropertyCount - 1] = -kNan; },
      [](EnvironmentRecord& e) { e.matrix.working()[5] = kNan; },
      [](EnvironmentRecord& e) { e.resultRows[1][5] = kNan; },
      [](EnvironmentRecord& e) { e.prefail.m = kNan; },
      [](EnvironmentRecord& e) { e.prefail.c2mdeg[2] = kNan; },
      [](EnvironmentRecord& e) { e.damageStates.back().set(DamageSet::warpMatrix)[11] = kNan; },
  };
  for (std::size_t i = 0; i < spoils.size(); ++i) {
    EnvironmentRecord environment = solved();
    spoils[i](environment);
    EXPECT_FALSE(holdsNumbers(environment)) << i;
  }
}

TEST(SolveCheck, DoesNotLookAtPrefailConstantsWithoutAShearCurve) {
  EnvironmentRecord environment = solved();
  environment.shearStress.clear();
  environment.prefail.thr = kNan;
  EXPECT_TRUE(holdsNumbers(environment));
}

}  // namespace
}  // namespace lamcraft
