// SPDX-License-Identifier: BSD-3-Clause
#include <stdexcept>

#include <gtest/gtest.h>

#include "abqinp/InputFileException.h"
#include "material/support/DeckRun.h"
#include "model/LamcraftException.h"
#include "support/TemporaryFolder.h"

namespace lamcraft {
namespace {

using abqinp::InputFileException;

TEST(Interpretation, StartsWithMaterial) {
  EXPECT_EQ(failureOf<InputFileException>(environmentKeyword() + materialKeyword()),
            "Keyword, ENVIRONMENT, missing parent keyword: MATERIAL");
}

TEST(Interpretation, MissesMaterialBeforeItLooksTheNameUp) {
  EXPECT_EQ(failureOf<InputFileException>("*NONSENSE\n"),
            "Keyword, NONSENSE, missing parent keyword: MATERIAL");
}

TEST(Interpretation, PassesCommentsOver) {
  InterpretedDeck deck("** first\n" + materialKeyword() + "** last\n");
  EXPECT_EQ(deck.composite().materialName, "Sample 1");
}

TEST(Interpretation, RefusesUnknownKeywords) {
  EXPECT_EQ(failureOf<InputFileException>(materialKeyword() + "*Nonsense\n"),
            "Invalid keyword: NONSENSE");
}

TEST(Interpretation, MissesTheParameterThatAHandlerNeeds) {
  EXPECT_EQ(failureOf<std::out_of_range>("*MATERIAL, SYSTEM=CFRP, NAME=A\n"),
            "MATERIAL does not have a parameter named TYPE");
  EXPECT_EQ(failureOf<std::out_of_range>("*MATERIAL, TYPE=UNI, NAME=A\n"),
            "MATERIAL does not have a parameter named SYSTEM");
  EXPECT_EQ(failureOf<std::out_of_range>("*MATERIAL, TYPE=UNI, SYSTEM=CFRP\n"),
            "MATERIAL does not have a parameter named NAME");
  EXPECT_EQ(failureOf<std::out_of_range>(materialKeyword() + "*ENVIRONMENT, TEMPERATURE=1\n"),
            "ENVIRONMENT does not have a parameter named MOISTURE");
  EXPECT_EQ(failureOf<std::out_of_range>(materialKeyword() + "*ENVIRONMENT, MOISTURE=DRY\n"),
            "ENVIRONMENT does not have a parameter named TEMPERATURE");
  EXPECT_EQ(failureOf<std::out_of_range>(materialKeyword() + "*SOLVE\n"),
            "SOLVE does not have a parameter named MATDIR");
  EXPECT_EQ(failureOf<std::out_of_range>(materialKeyword() + environmentKeyword() + "*LAMINATE\n"),
            "LAMINATE does not have a parameter named NAME");
}

TEST(Interpretation, ReportsTheTextThatIsNoNumber) {
  EXPECT_EQ(failureOf<std::invalid_argument>(materialKeyword() + "*FVF\nsome\n"), "SOME");
  EXPECT_EQ(failureOf<std::invalid_argument>(materialKeyword() + environmentKeyword("DRY", "HOT")),
            "HOT");
}

TEST(Interpretation, ReportsMissingRequiredValues) {
  EXPECT_EQ(failureOf<std::out_of_range>(materialKeyword() + "*FVF\n"),
            "Requested line does not exist");
  EXPECT_EQ(failureOf<std::out_of_range>(materialKeyword("PLAINWEAVE") + "*BVF\n0.4\n"),
            "Requested value does not exist");
}

TEST(Interpretation, PerEnvironmentKeywordsNeedAnEnvironment) {
  for (const char* const name : {"STRENGTHS",
                                 "CRITICALINVARIANTS",
                                 "LAMINA",
                                 "FIBER",
                                 "MATRIX",
                                 "FRACTURE",
                                 "DELAM",
                                 "SNDATA",
                                 "NLSHEAR"}) {
    EXPECT_EQ(failureOf<InputFileException>(materialKeyword() + "*" + name + "\n1,1,1,1,1,1,1\n"),
              std::string("Keyword, ") + name + ", missing parent keyword: ENVIRONMENT");
  }
  EXPECT_EQ(failureOf<InputFileException>(materialKeyword() + "*LAMINATE, NAME=A\n"),
            "Keyword, LAMINATE, missing parent keyword: ENVIRONMENT");
}

TEST(Interpretation, WeaveKeywordsAreMisplacedInAUnidirectionalComposite) {
  EXPECT_EQ(failureOf<InputFileException>(materialKeyword() + "*BVF\n0.4, 0.4\n"),
            "Misplaced keyword: BVF");
  EXPECT_EQ(failureOf<InputFileException>(materialKeyword() + "*DEGRADATION\n0.1, 0.1\n"),
            "Misplaced keyword: DEGRADATION");
}

TEST(Interpretation, FractureIsMisplacedInAWeave) {
  EXPECT_EQ(failureOf<InputFileException>(materialKeyword("5HSATIN") + environmentKeyword() +
                                          "*FRACTURE\n1,1,1,1,1,1\n"),
            "Misplaced keyword: FRACTURE");
}

TEST(Interpretation, RefusesOtherTypes) {
  for (const char* const type : {"\"uni\"", "WEAVE", "3HSATIN", ""}) {
    EXPECT_EQ(failureOf<LamcraftException>(materialKeyword(type)),
              "Invalid Material TYPE specified.")
        << type;
  }
}

TEST(Interpretation, ASecondMaterialReplacesTheComposite) {
  InterpretedDeck deck(materialKeyword() + environmentKeyword() +
                       "*MATERIAL, TYPE=8HSATIN, SYSTEM=GFRP, NAME=TWO\n");
  EXPECT_EQ(deck.composite().materialName, "TWO");
  EXPECT_EQ(deck.composite().harness(), 8);
  EXPECT_TRUE(deck.composite().environments.empty());
}

TEST(Interpretation, FatigueMeansNothing) {
  InterpretedDeck deck(materialKeyword() + "*FATIGUE, ANY=THING\n1, 2, 3\n");
  EXPECT_FALSE(deck.composite().presence.snData);
}

TEST(Interpretation, GoesOnBehindAKeywordThatItRefused) {
  const test::TemporaryFolder folder;
  abqinp::InputFile deck;
  deck.read(folder.write("deck.qdk", materialKeyword() + "*BRAID\n" + environmentKeyword()));
  Interpretation interpretation(deck);
  std::string refused;
  while (deck.nextKeyword()) {
    try {
      interpretation.interpret(*deck.currentKeyword());
    } catch (const InputFileException& failure) {
      refused += failure.what();
    }
  }
  EXPECT_EQ(refused, "Invalid keyword: BRAID");
  EXPECT_EQ(interpretation.composite().environments.size(), 1U);
}

TEST(Interpretation, HasNoCompositeBeforeMaterial) {
  EXPECT_FALSE(Interpretation().hasComposite());
}

TEST(Interpretation, CanBeRepeated) {
  InterpretedDeck deck(materialKeyword() + environmentKeyword());
  deck.material().interpret();
  EXPECT_EQ(deck.composite().environments.size(), 1U);
}

}  // namespace
}  // namespace lamcraft
