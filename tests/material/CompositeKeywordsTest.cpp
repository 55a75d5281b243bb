// SPDX-License-Identifier: BSD-3-Clause
#include <gtest/gtest.h>

#include "composite/SatinWeave.h"
#include "composite/Uni.h"
#include "material/support/DeckRun.h"

namespace lamcraft {
namespace {

double fractionOf(InterpretedDeck& deck, const char* const constituent) {
  return deck.composite().get(constituent).volumeFraction.value();
}

double degradationOf(InterpretedDeck& deck, const char* const constituent) {
  return deck.composite().get(constituent).degradation;
}

TEST(MaterialKeyword, BuildsTheCompositeOfItsType) {
  EXPECT_NE(dynamic_cast<Uni*>(&InterpretedDeck(materialKeyword("UNI")).composite()), nullptr);
  EXPECT_EQ(InterpretedDeck(materialKeyword("PLAINWEAVE")).composite().harness(), 1);
  EXPECT_EQ(InterpretedDeck(materialKeyword("4HSATIN")).composite().harness(), 4);
  EXPECT_EQ(InterpretedDeck(materialKeyword("5HSATIN")).composite().harness(), 5);
  EXPECT_EQ(InterpretedDeck(materialKeyword("8HSATIN")).composite().harness(), 8);
}

TEST(MaterialKeyword, FoldsItsTypeUnlessQuoted) {
  EXPECT_NE(dynamic_cast<Uni*>(&InterpretedDeck(materialKeyword("uni")).composite()), nullptr);
}

TEST(MaterialKeyword, ReadsUnitsDensityThicknessAndTemperature) {
  InterpretedDeck deck(materialKeyword() + "2, 1.6e-9, 0.127, 450\n");
  EXPECT_EQ(deck.composite().unitSystem, 2);
  EXPECT_EQ(deck.composite().density, 1.6e-9);
  EXPECT_EQ(deck.composite().plyThickness.value(), 0.127);
  EXPECT_EQ(deck.composite().referenceTemperature.value(), 450.0);
}

TEST(MaterialKeyword, TakesBaseUnitsAndZerosWithoutData) {
  InterpretedDeck deck(materialKeyword());
  EXPECT_EQ(deck.composite().unitSystem, 1);
  EXPECT_EQ(deck.composite().density, 0.0);
  EXPECT_EQ(deck.composite().plyThickness.value(), 0.0);
  EXPECT_EQ(deck.composite().referenceTemperature.value(), 0.0);
}

TEST(MaterialKeyword, NotesTheKeywordsOfTheWholeDeck) {
  InterpretedDeck deck(materialKeyword() + environmentKeyword() + "*SNDATA\n*DELAM\n");
  EXPECT_TRUE(deck.composite().presence.snData);
  EXPECT_TRUE(deck.composite().presence.delam);
  EXPECT_FALSE(deck.composite().presence.fracture);
  EXPECT_FALSE(deck.composite().presence.nlShear);
  EXPECT_FALSE(deck.composite().presence.variation);
}

TEST(MaterialKeyword, KeepsOverwrite) {
  EXPECT_FALSE(InterpretedDeck(materialKeyword()).interpretation().overwrite);
  EXPECT_TRUE(InterpretedDeck("*MATERIAL, TYPE=UNI, SYSTEM=CFRP, NAME=A, OVERWRITE\n")
                  .interpretation()
                  .overwrite);
}

TEST(MaterialKeyword, NamesTheConstituentsAfterTheSystem) {
  InterpretedDeck deck(materialKeyword("UNI", "CFI-BMI"));
  EXPECT_EQ(deck.composite().get("fiber").type(), "carbon intermediate");
  EXPECT_EQ(deck.composite().get("matrix").type(), "BMI");
}

TEST(MaterialKeyword, FetchesTheDefaultsOfAKnownSystem) {
  InterpretedDeck deck(materialKeyword("UNI", "KF-BMI"));
  EXPECT_EQ(deck.composite().system.code, 18);
  EXPECT_EQ(deck.composite().system.name, "KF-BMI");
  EXPECT_GT(deck.composite().system.fiber.working(Property::e11), 0.0);
  EXPECT_EQ(deck.composite().system.matrix.symmetry, Symmetry::transverse23);
}

TEST(MaterialKeyword, HasNoDefaultsForOtherSystems) {
  InterpretedDeck deck(materialKeyword("UNI", "\"cfrp\""));
  EXPECT_EQ(deck.composite().system.fiber.working(Property::e11), 0.0);
  EXPECT_EQ(deck.composite().get("fiber").type(), "NA");
}

TEST(FiberVolumeFraction, SharesAUnidirectionalComposite) {
  InterpretedDeck deck(materialKeyword() + "*FVF\n0.6\n");
  EXPECT_EQ(fractionOf(deck, "fiber"), 0.6);
  EXPECT_EQ(fractionOf(deck, "matrix"), 1.0 - 0.6);
}

TEST(FiberVolumeFraction, SharesBothTowsOfAWeave) {
  InterpretedDeck deck(materialKeyword("4HSATIN") + "*FVF\n0.7\n");
  for (const char* const fiber : {"fill_fiber", "warp_fiber"}) {
    EXPECT_EQ(fractionOf(deck, fiber), 0.7);
  }
  for (const char* const matrix : {"fill_matrix", "warp_matrix"}) {
    EXPECT_EQ(fractionOf(deck, matrix), 1.0 - 0.7);
  }
  EXPECT_EQ(fractionOf(deck, "matrixpocket"), 0.0);
}

TEST(BundleVolumeFractions, LeaveTheRestToThePocket) {
  InterpretedDeck deck(materialKeyword("PLAINWEAVE") + "*BVF\n0.4, 0.35\n");
  EXPECT_EQ(fractionOf(deck, "fill"), 0.4);
  EXPECT_EQ(fractionOf(deck, "warp"), 0.35);
  EXPECT_DOUBLE_EQ(fractionOf(deck, "matrixpocket"), 0.25);
}

TEST(BundleVolumeFractions, MayLeaveLessThanNothing) {
  InterpretedDeck deck(materialKeyword("PLAINWEAVE") + "*BVF\n0.6, 0.5\n");
  EXPECT_DOUBLE_EQ(fractionOf(deck, "matrixpocket"), -0.1);
}

TEST(Degradation, IsSharedByFillAndWarp) {
  InterpretedDeck deck(materialKeyword("5HSATIN") + "*DEGRADATION\n0.1, 0.01\n");
  for (const char* const tow : {"fill", "warp"}) {
    EXPECT_EQ(degradationOf(deck, (std::string(tow) + "_matrix").c_str()), 0.1);
    EXPECT_EQ(degradationOf(deck, (std::string(tow) + "_fiber").c_str()), 0.01);
  }
  EXPECT_EQ(degradationOf(deck, "matrixpocket"), -1.0);
}

TEST(Degradation, KeepsWhatIsNotGiven) {
  InterpretedDeck deck(materialKeyword("5HSATIN") +
                       "*DEGRADATION\n0.1, 0.01\n*DEGRADATION\n, 0.02\n");
  EXPECT_EQ(degradationOf(deck, "warp_matrix"), 0.1);
  EXPECT_EQ(degradationOf(deck, "warp_fiber"), 0.02);
}

TEST(Solve, KeepsItsFolderAsWritten) {
  InterpretedDeck deck(materialKeyword() + "*SOLVE, MATDIR=\"some where/else\"\n1e-4\n");
  EXPECT_EQ(deck.interpretation().materialsDirectory, "some where/else");
  EXPECT_EQ(deck.composite().maximumErrors[0], 1e-4);
  EXPECT_EQ(deck.composite().maximumErrors[1], 1e-3);
}

}  // namespace
}  // namespace lamcraft
