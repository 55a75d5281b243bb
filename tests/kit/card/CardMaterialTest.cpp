// SPDX-License-Identifier: BSD-3-Clause
#include "card/CardMaterial.h"

#include <string>

#include <gtest/gtest.h>

#include "command/Context.h"
#include "kit/card/TestFolder.h"

namespace lamkit {
namespace {

using lamcraft::Property;
using test::plyAt;

TEST(CardMaterial, TakesEnvironmentsByRisingTemperature) {
  const MaterialFolder folder = plyAt({{296.0, "dry"}, {233.0, "dry"}, {333.0, "dry"}});
  const CardMaterial card = cardOf(folder, {}, kSi);
  ASSERT_EQ(card.temperatures.size(), 3U);
  EXPECT_EQ(card.temperatures[0].temperature, 233.0);
  EXPECT_EQ(card.temperatures[0].number, 2U);
  EXPECT_EQ(card.temperatures[1].number, 1U);
  EXPECT_EQ(card.temperatures[2].number, 3U);
  for (const CardEnvironment& environment : card.temperatures) {
    EXPECT_DOUBLE_EQ(environment[Property::e11], 1e9 * environment.temperature);
  }
}

TEST(CardMaterial, HasOneMoisture) {
  const MaterialFolder folder = plyAt({{296.0, "dry"}, {296.0, "wet"}, {333.0, "wet"}});
  const CardMaterial card = cardOf(folder, "wet", kSi);
  EXPECT_EQ(card.moisture, "wet");
  ASSERT_EQ(card.temperatures.size(), 2U);
  EXPECT_EQ(card.temperatures[0].number, 2U);
  try {
    static_cast<void>(cardOf(folder, {}, kSi));
    FAIL() << "two moistures are no choice";
  } catch (const Failure& failure) {
    EXPECT_STREQ(failure.what(),
                 "out/ply: has environments of several moistures (dry, wet): choose one with "
                 "--moisture");
  }
  EXPECT_THROW(static_cast<void>(cardOf(folder, "ambient", kSi)), Failure);
}

TEST(CardMaterial, NeedsAnEnvironment) {
  const MaterialFolder folder = plyAt({});
  EXPECT_THROW(static_cast<void>(cardOf(folder, {}, kSi)), Failure);
}

TEST(CardMaterial, RefusesTwoEnvironmentsOfOneTemperature) {
  const MaterialFolder folder = plyAt({{296.0, "dry"}, {233.0, "dry"}, {296.0, "dry"}});
  try {
    static_cast<void>(cardOf(folder, {}, kSi));
    FAIL() << "a table over temperature has one line for each";
  } catch (const AmbiguousCard& reason) {
    EXPECT_EQ(std::string(reason.what()).find("environments 1 and 3 are both of 296 K and dry"),
              0U);
  }
}

TEST(CardMaterial, ConvertsToMillimetreAndTonne) {
  const MaterialFolder folder = plyAt({{100.0, "dry"}});
  const CardMaterial card = cardOf(folder, {}, kMillimetreTonne);
  const CardEnvironment& environment = card.temperatures.front();
  EXPECT_DOUBLE_EQ(card.density, 1600e-12);
  EXPECT_DOUBLE_EQ(card.referenceTemperature, 450.0);
  EXPECT_DOUBLE_EQ(environment.temperature, 100.0);
  EXPECT_DOUBLE_EQ(environment[Property::e11], 100e3);
  EXPECT_DOUBLE_EQ(environment[Property::v12], 0.3);
  EXPECT_DOUBLE_EQ(environment[Property::a11], 1e-7);
  EXPECT_DOUBLE_EQ(environment[lamcraft::UniStrength::s23], 6.0);
  EXPECT_DOUBLE_EQ(environment.fracture->at(0), 10e-3);   // N/m to N/mm
  EXPECT_DOUBLE_EQ(environment.fracture->at(5), 60.0);    // the exponent
  EXPECT_DOUBLE_EQ(environment.cohesive->at(0), 100e-9);  // Pa/m to N/mm^3
  EXPECT_DOUBLE_EQ(environment.cohesive->at(3), 400e-6);  // Pa to MPa
}

TEST(SolverName, KeepsLettersDigitsAndMinus) {
  EXPECT_EQ(solverName("im7-8552"), "im7-8552");
  EXPECT_EQ(solverName("AS4/3501 6, 60%"), "AS4_3501_6__60_");
  EXPECT_EQ(solverName("8552"), "M8552");
  EXPECT_EQ(solverName("_x"), "M_x");
  EXPECT_EQ(solverName(""), "material");
  EXPECT_EQ(solverName("K\xC3\xA4rnten"), "K__rnten");
}

TEST(SolverName, HasAtMost79Characters) {
  EXPECT_EQ(solverName(std::string(200, 'a')).size(), 79U);
  EXPECT_EQ(solverName(std::string(200, '1')).size(), 79U);
}

}  // namespace
}  // namespace lamkit
