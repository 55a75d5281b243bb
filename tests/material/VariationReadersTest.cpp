// SPDX-License-Identifier: BSD-3-Clause
#include <stdexcept>

#include <gtest/gtest.h>

#include "abqinp/InputFileException.h"
#include "material/support/DeckRun.h"

namespace lamcraft {
namespace {

std::string variation(const std::string& prop) {
  return "*VARIATION, PROP=" + prop + "\n-1, 1\n0, 0.5\n";
}

std::string uniWith(const std::string& keywords) {
  return materialKeyword() + environmentKeyword() + keywords;
}

std::string weaveWith(const std::string& keywords) {
  return materialKeyword("PLAINWEAVE") + environmentKeyword() + keywords;
}

/// How many properties of a group the deck has given a scatter.
template <typename Group>
std::vector<std::size_t> variedIn(const Group& group) {
  std::vector<std::size_t> varied;
  for (std::size_t i = 0; i < group.size(); ++i) {
    if (group[i].isVaried()) {
      varied.push_back(i);
    }
  }
  return varied;
}

using Positions = std::vector<std::size_t>;

constexpr const char* kStrengths = "*STRENGTHS\n1,2,3,4,5,6\n";

TEST(VariationReaders, MaterialVariesThicknessAndReferenceTemperature) {
  InterpretedDeck deck(materialKeyword() + variation("THICKNESS") + variation("REFTEMP"));
  EXPECT_TRUE(deck.composite().plyThickness.isVaried());
  EXPECT_TRUE(deck.composite().referenceTemperature.isVaried());
}

TEST(VariationReaders, ContextStaysAcrossKeywordsThatInstallNone) {
  InterpretedDeck deck(
      uniWith(variation("THICKNESS") + "*LAMINA\n1,2,0.3,0.3,5,6,7\n" + variation("REFTEMP")));
  EXPECT_TRUE(deck.composite().plyThickness.isVaried());
  EXPECT_TRUE(deck.composite().referenceTemperature.isVaried());
}

TEST(VariationReaders, ContextEndsWithTheNextOne) {
  EXPECT_EQ(
      failureOf<std::invalid_argument>(materialKeyword() + "*FVF\n0.6\n" + variation("THICKNESS")),
      "Invalid variation property:THICKNESS");
}

TEST(VariationReaders, FiberVolumeFractionOfAUnidirectionalComposite) {
  InterpretedDeck deck(materialKeyword() + "*FVF\n0.6\n" + variation("FVF"));
  EXPECT_TRUE(deck.composite().get("fiber").volumeFraction.isVaried());
  EXPECT_FALSE(deck.composite().get("matrix").volumeFraction.isVaried());
  EXPECT_EQ(deck.composite().get("fiber").volumeFraction.value(), 0.6);
}

TEST(VariationReaders, FiberVolumeFractionOfAWeaveFillsBothTows) {
  InterpretedDeck deck(weaveWith("*FVF\n0.6\n" + variation("FVF")));
  for (const char* const fiber : {"fill_fiber", "warp_fiber"}) {
    EXPECT_EQ(deck.composite().get(fiber).volumeFraction.max(), 1.0) << fiber;
  }
}

TEST(VariationReaders, FiberAndMatrixAreVariedEachInItsContext) {
  InterpretedDeck deck(uniWith("*FIBER\n230, 15, 0.2, 0.25, 20, 1, 1\n" + variation("E11") +
                               "*MATRIX, LAW=ISO\n4, 0.3, 5\n" + variation("CTE11")));
  EXPECT_EQ(variedIn(deck.environment().fiber.variables()), (Positions{0}));
  EXPECT_EQ(variedIn(deck.environment().matrix.variables()), (Positions{9, 10, 11}))
      << "an isotropic matrix passes the scatter on";
}

TEST(VariationReaders, DependentPropertiesOfTheFiberFollow) {
  InterpretedDeck deck(uniWith("*FIBER\n230, 15, 0.2, 0.25, 20, 1, 1\n" + variation("NU12")));
  EXPECT_EQ(variedIn(deck.environment().fiber.variables()), (Positions{3, 4}));
}

TEST(VariationReaders, EveryNameOfAPropertySet) {
  const char* const names[] = {
      "E11", "E22", "E33", "NU12", "NU13", "NU23", "G12", "G13", "G23", "CTE11", "CTE22", "CTE33"};
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    InterpretedDeck deck(
        uniWith("*MATRIX, LAW=ORTHO\n1,1,1,1,1,1,1,1,1,1,1,1\n" + variation(names[i])));
    EXPECT_EQ(variedIn(deck.environment().matrix.variables()), (Positions{i})) << names[i];
  }
}

TEST(VariationReaders, EveryStrengthOfAUnidirectionalComposite) {
  const char* const names[] = {"T1", "C1", "T2", "C2", "S12", "S23"};
  for (std::size_t i = 0; i < kStrengthCount; ++i) {
    InterpretedDeck deck(uniWith(kStrengths + variation(names[i])));
    EXPECT_EQ(variedIn(deck.environment().strengths), (Positions{i})) << names[i];
  }
}

TEST(VariationReaders, UltimateStrengthsOfAWeave) {
  InterpretedDeck deck(
      weaveWith(kStrengths + variation("T1") + variation("C1") + variation("S12")));
  EXPECT_EQ(variedIn(deck.environment().strengths), (Positions{1, 3, 5}));
}

TEST(VariationReaders, AWeaveHasNoTransverseStrengths) {
  for (const char* const name : {"T2", "C2", "S23"}) {
    EXPECT_EQ(failureOf<std::invalid_argument>(weaveWith(kStrengths + variation(name))),
              std::string("Invalid variation property:") + name);
  }
}

TEST(VariationReaders, EveryCriticalInvariant) {
  const char* const names[] = {"DILATATION",
                               "DISTORTION",
                               "FIBERTENSILEDISTORTION",
                               "FIBERCOMPRESSIVEDISTORTION",
                               "TENSILESTRAIN",
                               "COMPRESSIVESTRAIN"};
  for (std::size_t i = 0; i < kInvariantCount; ++i) {
    InterpretedDeck deck(uniWith("*CRITICALINVARIANTS\n1,2,3,4,5,6\n" + variation(names[i])));
    EXPECT_EQ(variedIn(deck.environment().invariants), (Positions{i})) << names[i];
  }
}

TEST(VariationReaders, EveryFractureProperty) {
  const char* const names[] = {"GFTC", "GFCC", "GMC", "GMNC", "GMSC", "ALPHA"};
  for (std::size_t i = 0; i < kFractureCount; ++i) {
    InterpretedDeck deck(uniWith("*FRACTURE\n1,2,3,4,5,6\n" + variation(names[i])));
    EXPECT_EQ(variedIn(deck.environment().fracture), (Positions{i})) << names[i];
  }
}

TEST(VariationReaders, EveryCohesiveProperty) {
  const char* const names[] = {"KNN",
                               "KSS",
                               "KTT",
                               "SN",
                               "SS",
                               "ST",
                               "DMF_DM0",
                               "GC",
                               "GNC",
                               "GSC",
                               "GTC",
                               "ALPHA",
                               "D2N",
                               "D2S",
                               "D2T"};
  for (std::size_t i = 0; i < kCohesiveCount; ++i) {
    InterpretedDeck deck(uniWith("*DELAM\n1\n2\n" + variation(names[i])));
    EXPECT_EQ(variedIn(deck.environment().cohesive), (Positions{i})) << names[i];
  }
}

TEST(VariationReaders, FillTheLastEnvironmentOfTheMoment) {
  InterpretedDeck deck(uniWith(kStrengths + environmentKeyword("WET") + variation("T1")));
  EXPECT_EQ(variedIn(deck.composite().environments[0].strengths), (Positions{}));
  EXPECT_EQ(variedIn(deck.composite().environments[1].strengths), (Positions{0}));
}

TEST(VariationReaders, NeedAProperty) {
  EXPECT_EQ(failureOf<std::out_of_range>(materialKeyword() + "*VARIATION\n1, 2\n"),
            "VARIATION does not have a parameter named PROP");
}

TEST(VariationReaders, CompareQuotedNamesExactly) {
  EXPECT_EQ(failureOf<std::invalid_argument>(uniWith(kStrengths + variation("\"t1\""))),
            "Invalid variation property:t1");
}

TEST(VariationReaders, FirstKeywordOfADeckIsStillMaterial) {
  EXPECT_EQ(failureOf<abqinp::InputFileException>(variation("FVF")),
            "Keyword, VARIATION, missing parent keyword: MATERIAL");
}

}  // namespace
}  // namespace lamcraft
