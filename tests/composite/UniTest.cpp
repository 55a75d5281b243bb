// SPDX-License-Identifier: BSD-3-Clause
#include "composite/Uni.h"

#include <sstream>

#include <gtest/gtest.h>

namespace lamcraft {
namespace {

VariableProperty& sixthStrength(EnvironmentRecord& environment) {
  return environment.strengths[5];
}

TEST(Uni, OwnsMatrixThenFiber) {
  const Uni uni("carbon low", "thermoset polymer");
  ASSERT_EQ(uni.children().size(), 2U);
  EXPECT_EQ(uni.children()[0]->name(), "matrix");
  EXPECT_EQ(uni.children()[0]->number(), 1);
  EXPECT_EQ(uni.children()[0]->type(), "thermoset polymer");
  EXPECT_EQ(uni.children()[1]->name(), "fiber");
  EXPECT_EQ(uni.children()[1]->number(), 2);
  EXPECT_EQ(uni.children()[1]->type(), "carbon low");
  EXPECT_EQ(reportedCount(uni), 2);
}

TEST(Uni, ReadsItsLaminaAsTransverselyIsotropic) {
  EXPECT_EQ(Uni("", "").laminaSymmetry(), Symmetry::transverse23);
}

TEST(Uni, HasNoHarness) {
  EXPECT_EQ(Uni("", "").harness(), 0);
}

TEST(Uni, IsValidWithoutEnvironments) {
  std::ostringstream messages;
  EXPECT_TRUE(Uni("", "").validate(messages));
  EXPECT_EQ(messages.str(), "");
}

TEST(Uni, NeedsTheSixthStrengthOfEveryEnvironment) {
  Uni uni("", "");
  sixthStrength(uni.addEnvironment("DRY", 296.0)).setValue(1.0);
  sixthStrength(uni.addEnvironment("WET", 296.0)).setValue(0.0);
  std::ostringstream messages;
  EXPECT_FALSE(uni.validate(messages));
  EXPECT_EQ(messages.str(), "Ultimate strengths must be greater than 0");
}

TEST(Uni, DoesNotLookAtTheOtherStrengths) {
  Uni uni("", "");
  sixthStrength(uni.addEnvironment("DRY", 296.0)).setValue(1e-300);
  std::ostringstream messages;
  EXPECT_TRUE(uni.validate(messages));
}

}  // namespace
}  // namespace lamcraft
