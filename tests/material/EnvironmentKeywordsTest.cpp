// SPDX-License-Identifier: BSD-3-Clause
#include <stdexcept>

#include <gtest/gtest.h>

#include "material/support/DeckRun.h"

namespace lamcraft {
namespace {

std::string uniWith(const std::string& keywords) {
  return materialKeyword() + environmentKeyword() + keywords;
}

TEST(Environment, IsAppendedInDeckOrder) {
  InterpretedDeck deck(materialKeyword() + environmentKeyword("DRY", "296") +
                       environmentKeyword("wet", "355.5"));
  ASSERT_EQ(deck.composite().environments.size(), 2U);
  EXPECT_STREQ(deck.composite().environments[0].moisture->name, "dry");
  EXPECT_EQ(deck.composite().environments[0].temperature, 296.0);
  EXPECT_STREQ(deck.composite().environments[1].moisture->name, "wet");
  EXPECT_EQ(deck.composite().environments[1].temperature, 355.5);
}

TEST(Environment, TakesAnyOtherMoistureForAmbient) {
  for (const char* const moisture : {"AMBIENT", "HUMID", "\"dry\"", "DRY1"}) {
    InterpretedDeck deck(materialKeyword() + environmentKeyword(moisture));
    EXPECT_STREQ(deck.environment().moisture->name, "ambient") << moisture;
  }
}

TEST(Environment, KeepsEqualOnesApart) {
  InterpretedDeck deck(materialKeyword() + environmentKeyword() + environmentKeyword());
  EXPECT_EQ(deck.composite().environments.size(), 2U);
}

TEST(Strengths, FillTheLastEnvironment) {
  InterpretedDeck deck(uniWith(environmentKeyword("WET") + "*STRENGTHS\n1, 2, 3, 4, 5, 6\n"));
  for (std::size_t i = 0; i < kStrengthCount; ++i) {
    EXPECT_EQ(deck.environment().strengths[i].value(), static_cast<double>(i + 1));
    EXPECT_EQ(deck.composite().environments[0].strengths[i].value(), 0.0);
  }
}

TEST(Strengths, AreAllRequired) {
  EXPECT_EQ(failureOf<std::out_of_range>(uniWith("*STRENGTHS\n1, 2, 3, 4, 5\n")),
            "Requested value does not exist");
}

TEST(Strengths, ReadAnEmptyValueAsZero) {
  InterpretedDeck deck(uniWith("*STRENGTHS\n1, , 3, 4, 5, 6\n"));
  EXPECT_EQ(deck.environment().strengths[1].value(), 0.0);
}

TEST(CriticalInvariants, FillTheirOwnGroup) {
  InterpretedDeck deck(uniWith("*CRITICALINVARIANTS\n1, 2, 3, 4, 5, 6\n"));
  EXPECT_EQ(deck.environment().invariants[5].value(), 6.0);
  EXPECT_EQ(deck.environment().strengths[5].value(), 0.0);
}

TEST(Lamina, OfAUnidirectionalCompositeHasSevenValues) {
  InterpretedDeck deck(uniWith("*LAMINA\n126e3, 11e3, 0.28, 0.4, 6.6e3, -1e-6, 26e-6\n"));
  const PropertySet& lamina = deck.environment().lamina;
  EXPECT_EQ(lamina.symmetry, Symmetry::transverse23);
  EXPECT_EQ(lamina.working(Property::e11), 126e3);
  EXPECT_EQ(lamina.working(Property::e33), 11e3);
  EXPECT_EQ(lamina.working(Property::v13), 0.28);
  EXPECT_EQ(lamina.working(Property::g13), 6.6e3);
  EXPECT_DOUBLE_EQ(lamina.working(Property::g23), 11e3 / (2.0 * 1.4));
  EXPECT_EQ(lamina.working(Property::a33), 26e-6);
}

TEST(Lamina, OfAWeaveHasTwelveValues) {
  InterpretedDeck deck(materialKeyword("8HSATIN") + environmentKeyword() +
                       "*LAMINA\n1,2,3,4,5,6,7,8,9,10,11,12\n");
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    EXPECT_EQ(deck.environment().lamina.working()[i], static_cast<double>(i + 1));
  }
}

TEST(Fiber, IsTransverselyIsotropic) {
  InterpretedDeck deck(uniWith("*FIBER\n230, 15, 0.2, 0.25, 20, -6e-7, 1e-5\n"));
  const PropertySet& fiber = deck.environment().fiber;
  EXPECT_EQ(fiber.working(Property::e33), 15.0);
  EXPECT_DOUBLE_EQ(fiber.working(Property::g23), 6.0);
  EXPECT_EQ(fiber.kind, PropertySet::Kind::deck);
}

TEST(Fiber, OfTheDeckAfterDefaultsIsInTheDecksUnits) {
  InterpretedDeck deck(uniWith("*FIBER, DEFAULT\n*FIBER\n230, 15, 0.2, 0.25, 20, -6e-7, 1e-5\n"));
  EXPECT_EQ(deck.environment().fiber.kind, PropertySet::Kind::deck);
}

TEST(Fiber, DefaultCopiesTheSystemsAndMarksThem) {
  InterpretedDeck deck(uniWith("*FIBER, DEFAULT\n"));
  const PropertySet& fiber = deck.environment().fiber;
  EXPECT_EQ(fiber.kind, PropertySet::Kind::systemDefaults);
  EXPECT_EQ(fiber.working(Property::e11), deck.composite().system.fiber.working(Property::e11));
  EXPECT_GT(fiber.working(Property::e11), 0.0);
}

TEST(Fiber, DefaultOfAnUnknownSystemIsEmpty) {
  InterpretedDeck deck(materialKeyword("UNI", "NOSUCH") + environmentKeyword() +
                       "*FIBER, DEFAULT\n");
  EXPECT_EQ(deck.environment().fiber.working(Property::e11), 0.0);
}

struct LawCase {
  const char* parameters;
  const char* values;
  Symmetry symmetry;
};
std::ostream& operator<<(std::ostream& out, const LawCase& law) {
  return out << law.parameters;
}

class MatrixLaw : public testing::TestWithParam<LawCase> {};

TEST_P(MatrixLaw, GivesTheSymmetryAndTheNumberOfValues) {
  const LawCase& law = GetParam();
  InterpretedDeck deck(uniWith(std::string("*MATRIX") + law.parameters + "\n" + law.values + "\n"));
  EXPECT_EQ(deck.environment().matrix.symmetry, law.symmetry);
  EXPECT_EQ(deck.environment().matrix.working(Property::e11), 1.0);
}

const LawCase kLaws[] = {
    {", LAW=ISO", "1,2,3", Symmetry::isotropic},
    {", LAW=TRANS12", "1,2,3,4,5,6,7", Symmetry::transverse12},
    {", LAW=TRANS23", "1,2,3,4,5,6,7", Symmetry::transverse23},
    {"", "1,2,3,4,5,6,7", Symmetry::transverse23},
    {", LAW=ORTHO", "1,2,3,4,5,6,7,8,9,10,11,12", Symmetry::orthotropic},
    {", LAW=OTHER", "1,2,3,4,5,6,7,8,9,10,11,12", Symmetry::unset},
    {", LAW=\"iso\"", "1,2,3,4,5,6,7,8,9,10,11,12", Symmetry::unset},
};
INSTANTIATE_TEST_SUITE_P(All, MatrixLaw, testing::ValuesIn(kLaws));

TEST(Matrix, DefaultTakesOnlyIsotropyFromItsLaw) {
  InterpretedDeck isotropic(uniWith("*MATRIX, DEFAULT, LAW=ISO\n"));
  EXPECT_EQ(isotropic.environment().matrix.symmetry, Symmetry::isotropic);
  EXPECT_EQ(isotropic.environment().matrix.kind, PropertySet::Kind::systemDefaults);
  for (const char* const law : {"TRANS12", "TRANS23", "ORTHO", "OTHER"}) {
    InterpretedDeck other(uniWith(std::string("*MATRIX, DEFAULT, LAW=") + law + "\n"));
    EXPECT_EQ(other.environment().matrix.symmetry, Symmetry::transverse23) << law;
  }
}

TEST(Fracture, KeepsValuesThatAreNotGiven) {
  InterpretedDeck deck(uniWith("*FRACTURE\n1, 2, 3, 4, 5, 6\n*FRACTURE\n10, , 30\n"));
  const auto& fracture = deck.environment().fracture;
  EXPECT_EQ(fracture[0].value(), 10.0);
  EXPECT_EQ(fracture[1].value(), 2.0);
  EXPECT_EQ(fracture[2].value(), 30.0);
  EXPECT_EQ(fracture[5].value(), 6.0);
}

TEST(Delam, ReadsEightAndSevenValues) {
  InterpretedDeck deck(uniWith("*DELAM\n1,2,3,4,5,6,7,8\n9,10,11,12,13,14,15\n"));
  for (std::size_t i = 0; i < kCohesiveCount; ++i) {
    EXPECT_EQ(deck.environment().cohesive[i].value(), static_cast<double>(i + 1));
  }
}

TEST(Delam, IsAllowedInAWeave) {
  InterpretedDeck deck(materialKeyword("PLAINWEAVE") + environmentKeyword() + "*DELAM\n1\n");
  EXPECT_EQ(deck.environment().cohesive[0].value(), 1.0);
}

TEST(Laminate, HasFiveCoefficientsWithDefaults) {
  InterpretedDeck deck(uniWith("*LAMINATE, NAME=QI\n*LAMINATE, NAME=\"b c\"\n2, 3, 4, 5, 6\n"));
  const auto& laminates = deck.environment().laminates;
  ASSERT_EQ(laminates.size(), 2U);
  EXPECT_EQ(laminates[0].name, "QI");
  EXPECT_EQ(laminates[0].coefficients, (std::array<double, 5>{1.0, 1.0, 0.0, 0.0, 0.0}));
  EXPECT_EQ(laminates[1].name, "b c");
  EXPECT_EQ(laminates[1].coefficients, (std::array<double, 5>{2.0, 3.0, 4.0, 5.0, 6.0}));
}

TEST(SnData, LeavesOutLinesOfLessThanOneCycle) {
  InterpretedDeck deck(
      uniWith("*SNDATA\n600, 1e3, 10, 0, 0.1\n500, 0.5, 10\n400\n\n300, -2, 5, 90, -1\n200, 1\n"));
  const auto& records = deck.environment().snRecords;
  ASSERT_EQ(records.size(), 3U);
  EXPECT_EQ(records[0].stress, 600.0);
  EXPECT_EQ(records[0].life, 1e3);
  EXPECT_EQ(records[0].frequency, 10.0);
  EXPECT_EQ(records[0].angle, 0.0);
  EXPECT_EQ(records[0].ratio, 0.1);
  EXPECT_EQ(records[1].life, -2.0);
  EXPECT_EQ(records[2].stress, 200.0);
  EXPECT_EQ(records[2].ratio, 0.0);
}

TEST(SnData, KeepsCountsThatFitNoInteger) {
  InterpretedDeck deck(uniWith("*SNDATA\n600, 1e30\n"));
  ASSERT_EQ(deck.environment().snRecords.size(), 1U);
  EXPECT_EQ(deck.environment().snRecords[0].life, 1e30);
}

TEST(NonlinearShear, AppendsEveryLineInDeckOrder) {
  InterpretedDeck deck(
      uniWith("*NLSHEAR\n30, 0.01\n10\n\n"
              "*NLSHEAR\n20, 0.02\n"));
  EXPECT_EQ(deck.environment().shearStress, (std::vector<double>{30.0, 10.0, 20.0}));
  EXPECT_EQ(deck.environment().shearStrain, (std::vector<double>{0.01, 0.0, 0.02}));
}

}  // namespace
}  // namespace lamcraft
