// SPDX-License-Identifier: BSD-3-Clause
#include "model/SymmetryRule.h"

#include <array>
#include <ostream>
#include <vector>

#include <gtest/gtest.h>

#include "model/support/DistinctSets.h"

namespace lamcraft {
namespace {

using P = Property;

struct CopyCase {
  Property to;
  Property from;
};
struct RuleCase {
  const char* name;
  Symmetry symmetry;
  std::vector<CopyCase> copies;
  std::vector<Property> shears;
  double modulus;
};
std::ostream& operator<<(std::ostream& out, const RuleCase& row) {
  return out << row.name;
}

class Consistency : public testing::TestWithParam<RuleCase> {};

const RuleCase kRuleCases[] = {
    {"isotropic",
     Symmetry::isotropic,
     {{P::e22, P::e11},
      {P::e33, P::e11},
      {P::v13, P::v12},
      {P::v23, P::v12},
      {P::a22, P::a11},
      {P::a33, P::a11}},
     {P::g12, P::g13, P::g23},
     101.0 / (2.0 * (0.1 + 1.0))},
    {"transverse12",
     Symmetry::transverse12,
     {{P::e22, P::e11}, {P::v23, P::v13}, {P::g23, P::g13}, {P::a22, P::a11}},
     {P::g12},
     101.0 / (2.0 * (0.1 + 1.0))},
    {"transverse23",
     Symmetry::transverse23,
     {{P::e33, P::e22}, {P::v13, P::v12}, {P::g13, P::g12}, {P::a33, P::a22}},
     {P::g23},
     102.0 / (2.0 * (0.3 + 1.0))},
    {"orthotropic", Symmetry::orthotropic, {}, {}, 0.0},
    {"unset", Symmetry::unset, {}, {}, 0.0},
    {"out of range", static_cast<Symmetry>(-3), {}, {}, 0.0},
};
INSTANTIATE_TEST_SUITE_P(SymmetryRule, Consistency, testing::ValuesIn(kRuleCases));

TEST_P(Consistency, BringsValueAndScatterOfTheSourceAlong) {
  const PropertySet before = distinctSet(GetParam().symmetry);
  PropertySet set = before;
  set.makeConsistent();
  for (const auto [to, from] : GetParam().copies) {
    EXPECT_EQ(set.working(to), before.working(from));
    EXPECT_EQ(numbersOf(set.variables()[indexOf(to)]),
              numbersOf(before.variables()[indexOf(from)]));
  }
}

TEST_P(Consistency, GivesTheShearModulusAValueAndLeavesItsScatter) {
  const PropertySet before = distinctSet(GetParam().symmetry);
  PropertySet set = before;
  set.makeConsistent();
  for (const Property shear : GetParam().shears) {
    EXPECT_EQ(set.working(shear), GetParam().modulus);
    std::vector<double> expected = numbersOf(before.variables()[indexOf(shear)]);
    expected.front() = GetParam().modulus;
    EXPECT_EQ(numbersOf(set.variables()[indexOf(shear)]), expected);
  }
}

TEST_P(Consistency, TouchesNothingElse) {
  const PropertySet before = distinctSet(GetParam().symmetry);
  PropertySet set = before;
  set.makeConsistent();
  std::array<bool, kPropertyCount> dependent{};
  for (const auto& copy : GetParam().copies) {
    dependent[indexOf(copy.to)] = true;
  }
  for (const Property shear : GetParam().shears) {
    dependent[indexOf(shear)] = true;
  }
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    if (!dependent[i]) {
      EXPECT_EQ(set.working()[i], before.working()[i]) << i;
      EXPECT_EQ(numbersOf(set.variables()[i]), numbersOf(before.variables()[i])) << i;
    }
  }
}

TEST_P(Consistency, KeepsNames) {
  PropertySet set = distinctSet(GetParam().symmetry);
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    set.variables()[i].setName(kPropertyRows[i].label);
  }
  set.makeConsistent();
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    EXPECT_EQ(set.variables()[i].name(), kPropertyRows[i].label);
  }
}

// Dependent values come from the source's variable property, the shear modulus from the working
// values: visible only while the two differ.
TEST(SymmetryRule, CopiesComeFromVariablesAndShearFromWorkingValues) {
  PropertySet set = distinctSet(Symmetry::isotropic);
  set.working(P::e11) = 260.0;
  set.working(P::v12) = 0.25;
  set.makeConsistent();
  EXPECT_EQ(set.working(P::e11), 260.0);
  EXPECT_EQ(set.variables()[indexOf(P::e11)].value(), 101.0);
  EXPECT_EQ(set.working(P::e22), 101.0);
  EXPECT_EQ(set.working(P::v13), 0.1);
  EXPECT_EQ(set.working(P::g23), 104.0);  // 260 / 2.5
  EXPECT_EQ(set.variables()[indexOf(P::g12)].value(), 104.0);
}

TEST(SymmetryRule, OfAnUnknownCodeIsTheOrthotropicOne) {
  const SymmetryRule& orthotropic = symmetryRule(Symmetry::orthotropic);
  EXPECT_EQ(&symmetryRule(Symmetry::unset), &orthotropic);
  EXPECT_EQ(&symmetryRule(static_cast<Symmetry>(5)), &orthotropic);
  EXPECT_NE(&symmetryRule(Symmetry::isotropic), &orthotropic);
}

}  // namespace
}  // namespace lamcraft
