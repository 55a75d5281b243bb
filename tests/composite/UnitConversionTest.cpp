// SPDX-License-Identifier: BSD-3-Clause
#include "composite/UnitConversion.h"

#include <array>
#include <memory>

#include <gtest/gtest.h>

#include "composite/Uni.h"

namespace lamcraft {
namespace {

constexpr double kPoundForce = 4.4482216;
constexpr double kInch = 0.0254;
constexpr double kFoot = 0.3048;
constexpr double kRankineStep = 0.5555555555555556;
constexpr double kPound = 0.45359237;

VariableProperty one() {
  VariableProperty made;
  made.setValue(1.0);
  return made;
}

/// A composite in which every number that a conversion could touch is 1, scatter included.
std::unique_ptr<Uni> compositeOfOnes(const std::int32_t unitSystem) {
  auto composite = std::make_unique<Uni>("fiber type", "matrix type");
  composite->unitSystem = unitSystem;
  composite->density = 1.0;
  composite->plyThickness = one();
  composite->referenceTemperature = one();
  EnvironmentRecord& environment = composite->addEnvironment("DRY", 1.0);
  environment.strengths.fill(one());
  environment.invariants.fill(one());
  environment.cohesive.fill(one());
  environment.fracture.fill(one());
  environment.snRecords.push_back({1.0, 1.0, 1.0, 1.0, 1.0});
  environment.shearStress = {1.0, 1.0};
  environment.shearStrain = {1.0, 1.0};
  std::array<double, kPropertyCount> ones{};
  ones.fill(1.0);
  for (PropertySet* const set : {&environment.lamina, &environment.fiber, &environment.matrix}) {
    set->load(ones.data(), Symmetry::orthotropic);
  }
  return composite;
}

std::unique_ptr<Uni> converted(const std::int32_t unitSystem) {
  auto composite = compositeOfOnes(unitSystem);
  convertToBaseUnits(*composite);
  return composite;
}

struct SystemCase {
  std::int32_t code;
  double force;
  double length;
  double temperature;
  double mass;
};
std::ostream& operator<<(std::ostream& out, const SystemCase& system) {
  return out << "system " << system.code;
}

class UnitSystems : public testing::TestWithParam<SystemCase> {};

TEST_P(UnitSystems, ScaleTheCompositeByMassLengthAndTemperature) {
  const SystemCase& s = GetParam();
  const auto composite = converted(s.code);
  EXPECT_DOUBLE_EQ(composite->density, s.mass / (s.length * s.length * s.length));
  EXPECT_DOUBLE_EQ(composite->plyThickness.value(), s.length);
  EXPECT_DOUBLE_EQ(composite->referenceTemperature.value(), s.temperature);
  EXPECT_DOUBLE_EQ(composite->environments[0].temperature, s.temperature);
}

TEST_P(UnitSystems, ScaleStrengthsAndModuliAsStresses) {
  const SystemCase& s = GetParam();
  const auto composite = converted(s.code);
  const EnvironmentRecord& environment = composite->environments[0];
  const double stress = s.force / (s.length * s.length);
  for (const VariableProperty& strength : environment.strengths) {
    EXPECT_DOUBLE_EQ(strength.value(), stress);
  }
  for (const PropertySet* const set :
       {&environment.lamina, &environment.fiber, &environment.matrix}) {
    EXPECT_DOUBLE_EQ(set->working(Property::e33), stress);
    EXPECT_DOUBLE_EQ(set->working(Property::g23), stress);
    EXPECT_DOUBLE_EQ(set->working(Property::v13), 1.0);
    EXPECT_DOUBLE_EQ(set->working(Property::a22), 1.0 / s.temperature);
  }
}

TEST_P(UnitSystems, ScaleOnlyTheStressOfTestRecords) {
  const SystemCase& s = GetParam();
  const auto composite = converted(s.code);
  const EnvironmentRecord& environment = composite->environments[0];
  const double stress = s.force / (s.length * s.length);
  const SnRecord& record = environment.snRecords[0];
  EXPECT_DOUBLE_EQ(record.stress, stress);
  EXPECT_EQ(record.life, 1.0);
  EXPECT_EQ(record.frequency, 1.0);
  EXPECT_EQ(record.angle, 1.0);
  EXPECT_EQ(record.ratio, 1.0);
  EXPECT_DOUBLE_EQ(environment.shearStress[1], stress);
  EXPECT_EQ(environment.shearStrain[1], 1.0);
}

TEST_P(UnitSystems, ScaleCohesiveAndFracturePropertiesRowByRow) {
  const SystemCase& s = GetParam();
  const auto composite = converted(s.code);
  const EnvironmentRecord& environment = composite->environments[0];
  const double stress = s.force / (s.length * s.length);
  const double energy = s.force / s.length;
  const std::array<double, kCohesiveCount> cohesive{stress,
                                                    stress,
                                                    stress,
                                                    stress,
                                                    stress,
                                                    stress,
                                                    s.length,
                                                    energy,
                                                    energy,
                                                    energy,
                                                    energy,
                                                    1.0,
                                                    s.length,
                                                    s.length,
                                                    s.length};
  for (std::size_t i = 0; i < kCohesiveCount; ++i) {
    EXPECT_DOUBLE_EQ(environment.cohesive[i].value(), cohesive[i]) << kCohesiveRows[i].tag;
  }
  const std::array<double, kFractureCount> fracture{energy, energy, energy, energy, energy, 1.0};
  for (std::size_t i = 0; i < kFractureCount; ++i) {
    EXPECT_DOUBLE_EQ(environment.fracture[i].value(), fracture[i]) << kFractureRows[i].tag;
  }
  for (const VariableProperty& invariant : environment.invariants) {
    EXPECT_EQ(invariant.value(), 1.0);
  }
}

INSTANTIATE_TEST_SUITE_P(All,
                         UnitSystems,
                         testing::Values(SystemCase{1, 1.0, 1.0, 1.0, 1.0},
                                         SystemCase{2, 1.0, 0.001, 1.0, 1.0},
                                         SystemCase{3, kPoundForce, kInch, kRankineStep, kPound},
                                         SystemCase{4, kPoundForce, kFoot, kRankineStep, kPound},
                                         SystemCase{0, 1.0, 1.0, 1.0, 1.0},
                                         SystemCase{-3, 1.0, 1.0, 1.0, 1.0},
                                         SystemCase{5, 1.0, 1.0, 1.0, 1.0}));

TEST(UnitConversion, LeavesTheWorkingValuesOfSystemDefaultsAlone) {
  const auto composite = compositeOfOnes(2);
  EnvironmentRecord& environment = composite->environments[0];
  environment.fiber.kind = PropertySet::Kind::systemDefaults;
  environment.matrix.kind = PropertySet::Kind::systemDefaults;
  convertToBaseUnits(*composite);
  for (const PropertySet* const set : {&environment.fiber, &environment.matrix}) {
    EXPECT_EQ(set->working(Property::e11), 1.0);
    EXPECT_DOUBLE_EQ(set->variables()[indexOf(Property::e11)].value(), 1e6);
  }
}

TEST(UnitConversion, NeverScalesTheVariablePropertiesOfTheLamina) {
  const auto composite = converted(2);
  const EnvironmentRecord& environment = composite->environments[0];
  const std::size_t e11 = indexOf(Property::e11);
  EXPECT_DOUBLE_EQ(environment.lamina.working(Property::e11), 1e6);
  EXPECT_EQ(environment.lamina.variables()[e11].value(), 1.0);
  EXPECT_DOUBLE_EQ(environment.fiber.variables()[e11].value(), 1e6);
  EXPECT_DOUBLE_EQ(environment.matrix.variables()[e11].value(), 1e6);
}

TEST(UnitConversion, ConvertsEveryEnvironment) {
  const auto composite = compositeOfOnes(2);
  composite->addEnvironment("WET", 300.0).strengths[0].setValue(2.0);
  convertToBaseUnits(*composite);
  EXPECT_DOUBLE_EQ(composite->environments[1].strengths[0].value(), 2e6);
}

}  // namespace
}  // namespace lamcraft
