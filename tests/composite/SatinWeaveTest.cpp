// SPDX-License-Identifier: BSD-3-Clause
#include "composite/SatinWeave.h"

#include <sstream>

#include <gtest/gtest.h>

namespace lamcraft {
namespace {

bool isValid(const SatinWeave& weave) {
  std::ostringstream messages;
  const bool valid = weave.validate(messages);
  EXPECT_EQ(messages.str(), "") << "a refused weave has no text of its own";
  return valid;
}

void degrade(SatinWeave& weave, const double fiber, const double matrix) {
  weave.get("fill_fiber").degradation = fiber;
  weave.get("fill_matrix").degradation = matrix;
}

void expectConstituent(const Constituent& constituent,
                       const char* const name,
                       const std::int32_t number,
                       const char* const type) {
  EXPECT_EQ(constituent.name(), name);
  EXPECT_EQ(constituent.number(), number) << name;
  EXPECT_EQ(constituent.type(), type) << name;
}

TEST(SatinWeave, OwnsPocketTowsAndInterface) {
  const SatinWeave weave("glass", "BMI", 5);
  ASSERT_EQ(weave.children().size(), 4U);
  expectConstituent(*weave.children()[0], "matrixpocket", 1, "BMI");
  expectConstituent(*weave.children()[1], "fill", 2, "composite");
  expectConstituent(*weave.children()[2], "warp", 3, "composite");
  expectConstituent(*weave.children()[3], "interface", 4, "composite");
  EXPECT_EQ(reportedCount(weave), 3) << "four count as three";
}

TEST(SatinWeave, EachTowOwnsMatrixThenFiber) {
  const SatinWeave weave("glass", "BMI", 5);
  const auto& fill = weave.children()[1]->children();
  ASSERT_EQ(fill.size(), 2U);
  expectConstituent(*fill[0], "fill_matrix", 1, "BMI");
  expectConstituent(*fill[1], "fill_fiber", 2, "glass");
  const auto& warp = weave.children()[2]->children();
  ASSERT_EQ(warp.size(), 2U);
  expectConstituent(*warp[0], "warp_matrix", 1, "BMI");
  expectConstituent(*warp[1], "warp_fiber", 2, "glass");
  EXPECT_EQ(reportedCount(*weave.children()[1]), 2);
}

TEST(SatinWeave, ReadsItsLaminaAsOrthotropic) {
  EXPECT_EQ(SatinWeave("", "", 1).laminaSymmetry(), Symmetry::orthotropic);
}

TEST(SatinWeave, PlainWeaveIsAlwaysValid) {
  EXPECT_TRUE(isValid(SatinWeave("", "", 1)));
}

TEST(SatinWeave, SatinNeedsDegradationFactors) {
  EXPECT_FALSE(isValid(SatinWeave("", "", 4)));
}

TEST(SatinWeave, SatinIsValidAtTheLeastFactors) {
  SatinWeave weave("", "", 8);
  degrade(weave, 1e-10, 1e-5);
  EXPECT_TRUE(isValid(weave));
}

TEST(SatinWeave, SatinIsRefusedBelowEitherLeastFactor) {
  SatinWeave weave("", "", 8);
  degrade(weave, 0.99e-10, 1.0);
  EXPECT_FALSE(isValid(weave));
  degrade(weave, 1.0, 0.99e-5);
  EXPECT_FALSE(isValid(weave));
}

TEST(SatinWeave, EveryEnvironmentListsItsDamageStates) {
  SatinWeave weave("", "", 1);
  const EnvironmentRecord& environment = weave.addEnvironment("DRY", 296.0);
  ASSERT_EQ(environment.damageStates.size(), 18U);
  ASSERT_EQ(environment.fatigueDamageStates.size(), 8U);
  EXPECT_EQ(environment.damageStates.back().state, 18);
  EXPECT_EQ(environment.fatigueDamageStates.back().state, 10);
}

}  // namespace
}  // namespace lamcraft
