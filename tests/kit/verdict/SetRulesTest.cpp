// SPDX-License-Identifier: BSD-3-Clause
#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "verdict/Rule.h"

namespace lamkit {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

PropertyValues soundSet() {
  PropertyValues set;
  const double values[] = {
      126e9, 11e9, 11e9, 0.28, 0.28, 0.4, 6.6e9, 6.6e9, 3.9e9, 0, 26e-6, 26e-6};
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    set[i].setValue(values[i]);
  }
  return set;
}

/// A weave of one constituent, sound in all 18 states.
Subject soundWeave() {
  Subject subject;
  subject.folder.data.harness = 1;
  EnvironmentData& environment = subject.folder.data.environments.emplace_back();
  FittedConstituent tow;
  tow.name = "fill";
  for (int state = 1; state <= 18; ++state) {
    environment.composite.push_back({state, soundSet()});
    tow.states.push_back({state, soundSet()});
    tow.decompositions.push_back({state, {}});
  }
  environment.constituents.push_back(tow);
  return subject;
}

EnvironmentData& environmentOf(Subject& subject) {
  return subject.folder.data.environments.front();
}

std::string onlyRule(const Subject& subject) {
  const Findings findings = setRules(subject);
  EXPECT_EQ(findings.size(), 1U);
  if (findings.empty()) {
    return {};
  }
  EXPECT_EQ(findings[0].severity, Severity::error);
  EXPECT_EQ(findings[0].environment, 1U);
  return findings[0].rule;
}

TEST(SetRules, HaveNothingToSayOfSoundSets) {
  EXPECT_TRUE(setRules(soundWeave()).empty());
}

TEST(SetRules, LookAtEveryDamageState) {
  Subject subject = soundWeave();
  environmentOf(subject).composite[17].properties[3].setValue(kNan);
  EXPECT_EQ(onlyRule(subject), "not-a-number");
}

TEST(SetRules, LookAtEveryConstituent) {
  Subject subject = soundWeave();
  FittedConstituent& tow = environmentOf(subject).constituents[0];
  FittedConstituent fiber = tow;
  fiber.name = "fill_fiber";
  fiber.states[4].properties[6].setValue(0.0);
  tow.children.push_back(fiber);
  EXPECT_EQ(onlyRule(subject), "zero-stiffness");
}

TEST(SetRules, LookAtDecompositions) {
  Subject subject = soundWeave();
  environmentOf(subject).constituents[0].decompositions[9].slot.thermalStrain[5] = INFINITY;
  EXPECT_EQ(onlyRule(subject), "not-a-number");
}

TEST(SetRules, CountTheStatesThatAreBroken) {
  Subject subject = soundWeave();
  for (const std::size_t state : {2U, 5U, 6U}) {
    environmentOf(subject).composite[state].properties[3].setValue(9.0);  // v12 beyond any bound
  }
  EXPECT_EQ(onlyRule(subject), "inadmissible");
  EXPECT_EQ(setRules(subject)[0].message.find("the composite in damage state 3 and 2 more would"),
            0U);
}

TEST(SetRules, LetADamagedPlyHaveLargeRatios) {
  Subject subject = soundWeave();
  PropertyValues& damaged = environmentOf(subject).composite[10].properties;
  damaged[1].setValue(11e9);
  damaged[2].setValue(0.5e9);
  damaged[5].setValue(1.2);  // v23 above 1 and below sqrt(E22/E33)
  EXPECT_TRUE(setRules(subject).empty());
}

}  // namespace
}  // namespace lamkit
