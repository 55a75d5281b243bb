// SPDX-License-Identifier: BSD-3-Clause
#include "model/PropertySet.h"

#include <ostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "model/support/DistinctSets.h"

namespace lamcraft {
namespace {

abqinp::Keyword keywordWith(const char* const dataLine) {
  abqinp::Keyword keyword = abqinp::Keyword::fromLine("*SET");
  keyword.addDataLine(dataLine);
  return keyword;
}

TEST(PropertySet, StartsAsZerosFromTheDeck) {
  const PropertySet set;
  EXPECT_EQ(set.kind, PropertySet::Kind::deck);
  EXPECT_EQ(set.symmetry, Symmetry::unset);
  EXPECT_EQ(workingOf(set), Twelve{});
  EXPECT_EQ(valuesOf(set), Twelve{});
  for (const VariableProperty& property : set.variables()) {
    EXPECT_FALSE(property.isVaried());
    EXPECT_TRUE(property.name().empty());
  }
}

TEST(PropertySet, HandsOutTwelveContiguousValues) {
  PropertySet set;
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    set.working()[i] = static_cast<double>(i);
    EXPECT_EQ(set.working(static_cast<Property>(i)), static_cast<double>(i));
    EXPECT_EQ(&set.working(static_cast<Property>(i)), set.working() + i);
  }
}

// ---- copies

TEST(PropertySet, CopiesAllButTheKind) {
  PropertySet defaults = distinctSet(Symmetry::transverse23);
  defaults.kind = PropertySet::Kind::systemDefaults;
  const PropertySet copy(defaults);
  PropertySet assigned;
  assigned.kind = PropertySet::Kind::systemDefaults;
  assigned = defaults;
  for (const PropertySet* const set : {&copy, static_cast<const PropertySet*>(&assigned)}) {
    EXPECT_EQ(set->kind, PropertySet::Kind::deck);
    EXPECT_EQ(set->symmetry, Symmetry::transverse23);
    EXPECT_EQ(workingOf(*set), workingOf(defaults));
    for (std::size_t i = 0; i < kPropertyCount; ++i) {
      EXPECT_EQ(numbersOf(set->variables()[i]), numbersOf(defaults.variables()[i]));
    }
  }
}

TEST(PropertySet, MovesWithItsKind) {
  PropertySet defaults = distinctSet(Symmetry::transverse23);
  defaults.kind = PropertySet::Kind::systemDefaults;
  PropertySet moved(std::move(defaults));
  EXPECT_EQ(moved.kind, PropertySet::Kind::systemDefaults);
  EXPECT_EQ(workingOf(moved), kDistinct);
  PropertySet assigned;
  assigned = std::move(moved);
  EXPECT_EQ(assigned.kind, PropertySet::Kind::systemDefaults);
}

TEST(PropertySet, KeepsTheNamesOfItsVariablesWhenAssigned) {
  PropertySet set;
  set.variables()[0].setName("mine");
  PropertySet other;
  other.variables()[0].setName("other");
  set = other;
  EXPECT_EQ(set.variables()[0].name(), "mine");
  EXPECT_EQ(PropertySet(other).variables()[0].name(), "");
}

// ---- reading

struct ReadCase {
  const char* name;
  Symmetry symmetry;
  std::vector<Property> positions;  ///< on the data line
};
std::ostream& operator<<(std::ostream& out, const ReadCase& row) {
  return out << row.name;
}

class ReadingA : public testing::TestWithParam<ReadCase> {};

using P = Property;
const ReadCase kReadCases[] = {
    {"ISO", Symmetry::isotropic, {P::e11, P::v12, P::a11}},
    {"TRANS12", Symmetry::transverse12, {P::e11, P::e33, P::v12, P::v13, P::g13, P::a11, P::a33}},
    {"TRANS23", Symmetry::transverse23, {P::e11, P::e22, P::v12, P::v23, P::g12, P::a11, P::a22}},
    {"ORTHO",
     Symmetry::orthotropic,
     {P::e11,
      P::e22,
      P::e33,
      P::v12,
      P::v13,
      P::v23,
      P::g12,
      P::g13,
      P::g23,
      P::a11,
      P::a22,
      P::a33}},
    {"unknown",
     Symmetry::unset,
     {P::e11,
      P::e22,
      P::e33,
      P::v12,
      P::v13,
      P::v23,
      P::g12,
      P::g13,
      P::g23,
      P::a11,
      P::a22,
      P::a33}},
    {"out of range",
     static_cast<Symmetry>(17),
     {P::e11,
      P::e22,
      P::e33,
      P::v12,
      P::v13,
      P::v23,
      P::g12,
      P::g13,
      P::g23,
      P::a11,
      P::a22,
      P::a33}},
};
INSTANTIATE_TEST_SUITE_P(PropertySet, ReadingA, testing::ValuesIn(kReadCases));

TEST_P(ReadingA, LineFillsTheGivenPropertiesInOrder) {
  PropertySet set;
  set.read(keywordWith("11,12,13,14,15,16,17,18,19,20,21,22"), GetParam().symmetry);
  EXPECT_EQ(set.symmetry, GetParam().symmetry);
  double expected = 11.0;
  for (const Property property : GetParam().positions) {
    EXPECT_EQ(set.working(property), expected);
    EXPECT_EQ(set.variables()[indexOf(property)].value(), expected);
    expected += 1.0;
  }
}

TEST_P(ReadingA, LineThatIsTooShortFails) {
  std::string line = "1";
  for (std::size_t i = 2; i < GetParam().positions.size(); ++i) {
    line += ",1";
  }
  PropertySet set;
  EXPECT_THROW(set.read(keywordWith(line.c_str()), GetParam().symmetry), std::out_of_range);
  EXPECT_NO_THROW(set.read(keywordWith((line + ",1").c_str()), GetParam().symmetry));
}

TEST(PropertySet, ReadSaysWhatIsMissing) {
  PropertySet set;
  try {
    set.read(abqinp::Keyword::fromLine("*SET"), Symmetry::isotropic);
    FAIL() << "no exception";
  } catch (const std::out_of_range& error) {
    EXPECT_STREQ(error.what(), "Requested line does not exist");
  }
  try {
    set.read(keywordWith("1,2"), Symmetry::isotropic);
    FAIL() << "no exception";
  } catch (const std::out_of_range& error) {
    EXPECT_STREQ(error.what(), "Requested value does not exist");
  }
}

TEST(PropertySet, ReadTakesAnEmptyValueAsZero) {
  PropertySet set;
  set.read(keywordWith("5,,3"), Symmetry::isotropic);
  EXPECT_EQ(set.working(P::e11), 5.0);
  EXPECT_EQ(set.working(P::v12), 0.0);
  EXPECT_EQ(set.working(P::a11), 3.0);
}

TEST(PropertySet, ReadClearsTheRangeAndKeepsTheDistributions) {
  PropertySet set = distinctSet(Symmetry::orthotropic);
  set.read(keywordWith("1,2,3,4,5,6,7,8,9,10,11,12"), Symmetry::orthotropic);
  const VariableProperty& e33 = set.variables()[indexOf(P::e33)];
  EXPECT_EQ(e33.min(), 0.0);
  EXPECT_EQ(e33.max(), 0.0);
  EXPECT_EQ(e33.distributions()[0]->parameter(0), 304.0);
}

// A second line of fewer values leaves what it does not give.
TEST(PropertySet, ReadKeepsPropertiesThatTheSymmetryDoesNotMention) {
  PropertySet set;
  set.read(keywordWith("1,2,3,4,5,6,7,8,9,10,11,12"), Symmetry::orthotropic);
  set.read(keywordWith("100,50,0.2,0.3,20,1,2"), Symmetry::transverse23);
  EXPECT_EQ(workingOf(set)[indexOf(P::e33)], 50.0);  // derived
  EXPECT_EQ(workingOf(set)[indexOf(P::e22)], 50.0);  // read
  EXPECT_EQ(set.symmetry, Symmetry::transverse23);
}

// ---- loading

TEST(PropertySet, LoadStoresTwelveValues) {
  PropertySet set;
  set.load(kDistinct.data(), Symmetry::orthotropic);
  EXPECT_EQ(set.symmetry, Symmetry::orthotropic);
  EXPECT_EQ(workingOf(set), kDistinct);
  EXPECT_EQ(valuesOf(set), kDistinct);
}

TEST(PropertySet, LoadWithoutACodeKeepsTheSymmetryAndItsRule) {
  PropertySet set;
  set.symmetry = Symmetry::transverse12;
  set.load(kDistinct.data(), Symmetry::unset);
  EXPECT_EQ(set.symmetry, Symmetry::transverse12);
  EXPECT_EQ(set.working(P::e22), 101.0);
}

TEST(PropertySet, LoadDerivesWhatTheNewSymmetryDemands) {
  PropertySet set;
  set.load(kDistinct.data(), Symmetry::transverse23);
  const Twelve expected{101.0,
                        102.0,
                        102.0,
                        0.1,
                        0.1,
                        0.3,
                        41.0,
                        41.0,
                        102.0 / (2.0 * (0.3 + 1.0)),
                        1e-6,
                        2e-6,
                        2e-6};
  EXPECT_EQ(workingOf(set), expected);
  EXPECT_EQ(valuesOf(set), expected);
}

// ---- publishing

TEST(PropertySet, PublishSetsValuesAndKeepsTheScatterOfIndependentOnes) {
  PropertySet set = distinctSet(Symmetry::transverse23);
  const std::vector<double> before = numbersOf(set.variables()[indexOf(P::e11)]);
  set.working(P::e11) = 777.0;
  set.publish();
  std::vector<double> expected = before;
  expected.front() = 777.0;
  EXPECT_EQ(numbersOf(set.variables()[indexOf(P::e11)]), expected);
}

TEST(PropertySet, PublishRestoresTheSymmetry) {
  PropertySet set = distinctSet(Symmetry::transverse23);
  set.working(P::e22) = 9.0;
  set.working(P::e33) = 11.0;  // a fit that broke the symmetry
  set.working(P::v23) = 0.5;
  set.publish();
  EXPECT_EQ(set.working(P::e33), 9.0);
  EXPECT_EQ(set.variables()[indexOf(P::e33)].value(), 9.0);
  EXPECT_EQ(set.variables()[indexOf(P::g23)].value(), 3.0);
  EXPECT_EQ(set.working(P::g23), 3.0);
}

TEST(PropertySet, PublishOfAnOrthotropicSetMirrorsTheWorkingValues) {
  PropertySet set = distinctSet(Symmetry::orthotropic);
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    set.working()[i] = 1000.0 + static_cast<double>(i);
  }
  set.publish();
  EXPECT_EQ(valuesOf(set), workingOf(set));
  EXPECT_EQ(set.variables()[11].value(), 1011.0);
}

// ---- scaling

TEST(PropertySet, ScalesModuliAndExpansionsButNotPoissonsRatios) {
  const Twelve expected{
      1010.0, 1020.0, 1030.0, 0.1, 0.2, 0.3, 410.0, 420.0, 430.0, 1e-6 * 2, 2e-6 * 2, 3e-6 * 2};
  const UnitFactors factors{40.0, 2.0, 0.5, 3.0};  // stresses grow tenfold, expansions twofold
  PropertySet working = distinctSet(Symmetry::orthotropic);
  working.scaleWorking(factors);
  EXPECT_EQ(workingOf(working), expected);
  EXPECT_EQ(valuesOf(working), kDistinct);
  PropertySet variables = distinctSet(Symmetry::orthotropic);
  variables.scaleVariables(factors);
  EXPECT_EQ(workingOf(variables), kDistinct);
  EXPECT_EQ(valuesOf(variables), expected);
  EXPECT_EQ(variables.variables()[0].min(), 1000.0);
  EXPECT_EQ(variables.variables()[3].min(), 400.0);
  EXPECT_EQ(variables.variables()[9].min(), 2000.0);
}

}  // namespace
}  // namespace lamcraft
