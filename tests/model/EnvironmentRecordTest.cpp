// SPDX-License-Identifier: BSD-3-Clause
#include "model/EnvironmentRecord.h"

#include <string>

#include <gtest/gtest.h>

namespace lamcraft {
namespace {

struct MoistureCase {
  const char* deckText;
  int code;
  const char* name;
};
std::ostream& operator<<(std::ostream& out, const MoistureCase& row) {
  return out << row.deckText;
}

class MoistureConditionOf : public testing::TestWithParam<MoistureCase> {};

TEST_P(MoistureConditionOf, DeckText) {
  const EnvironmentRecord environment(GetParam().deckText, 297.5);
  EXPECT_EQ(environment.moisture->code, GetParam().code);
  EXPECT_STREQ(environment.moisture->name, GetParam().name);
  EXPECT_EQ(environment.temperature, 297.5);
}

const MoistureCase kMoistureCases[] = {
    {"AMBIENT", 0, "ambient"},
    {"DRY", 1, "dry"},
    {"WET", 2, "wet"},
    {"HUMID", 0, "ambient"},
    {"", 0, "ambient"},
    {"dry", 0, "ambient"},
    {"DRY ", 0, "ambient"},
    {"WETTER", 0, "ambient"},
    {"WE", 0, "ambient"},
};
INSTANTIATE_TEST_SUITE_P(EnvironmentRecord, MoistureConditionOf, testing::ValuesIn(kMoistureCases));

TEST(EnvironmentRecord, StartsEmptyWithZeros) {
  const EnvironmentRecord environment("AMBIENT", 300.0);
  for (const VariableProperty& strength : environment.strengths) {
    EXPECT_EQ(strength.value(), 0.0);
  }
  const SolveErrors& errors = environment.errors;
  EXPECT_EQ(errors.initialMechanical, 0.0);
  EXPECT_EQ(errors.finalMechanical, 0.0);
  EXPECT_EQ(errors.initialThermal, 0.0);
  EXPECT_EQ(errors.finalThermal, 0.0);
  EXPECT_EQ(errors.initialFatigue, 0.0);
  EXPECT_EQ(errors.finalFatigue, 0.0);
  EXPECT_EQ(environment.iterations.mechanical, 0);
  EXPECT_EQ(environment.iterations.thermal, 0);
  EXPECT_EQ(environment.iterations.fatigue, 0);
  const PrefailConstants& prefail = environment.prefail;
  EXPECT_EQ(prefail.m, 0.0);
  EXPECT_EQ(prefail.b, 0.0);
  EXPECT_EQ(prefail.thr, 0.0);
  EXPECT_EQ(prefail.c2mdeg, (std::array<double, 3>{}));
  EXPECT_TRUE(environment.laminates.empty());
  EXPECT_TRUE(environment.snRecords.empty());
  EXPECT_TRUE(environment.resultRows.empty());
  EXPECT_TRUE(environment.shearStress.empty());
  EXPECT_TRUE(environment.shearStrain.empty());
  EXPECT_TRUE(environment.damageStates.empty());
  EXPECT_TRUE(environment.fatigueDamageStates.empty());
}

// The library takes two rows as twelve numbers and a list of tests as one array.
TEST(EnvironmentRecord, HoldsRowsAndTestsWithoutGaps) {
  EnvironmentRecord environment("AMBIENT", 300.0);
  environment.resultRows.resize(2);
  environment.resultRows[1] = {7.0, 8.0, 9.0, 10.0, 11.0, 12.0};
  EXPECT_EQ(environment.resultRows[0].data() + 6, environment.resultRows[1].data());
  environment.snRecords = {{1.0, 2.0, 3.0, 4.0, 5.0}, {6.0, 7.0, 8.0, 9.0, 10.0}};
  const double* const flat = &environment.snRecords.front().stress;
  EXPECT_EQ(flat + 5, &environment.snRecords[1].stress);
  EXPECT_EQ(flat + 3, &environment.snRecords[0].angle);
  EXPECT_EQ(flat + 4, &environment.snRecords[0].ratio);
}

}  // namespace
}  // namespace lamcraft
