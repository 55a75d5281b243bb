// SPDX-License-Identifier: BSD-3-Clause
// Compares cards with golden files; LAMCRAFT_APPROVE=1 in the environment writes them anew.

#include "card/CardFormats.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "kit/card/TestFolder.h"
#include "support/TemporaryFolder.h"

namespace lamkit {
namespace {

namespace fs = std::filesystem;
using lamcraft::test::contentOf;
using test::plyAt;

struct GoldenCard {
  const char* example;
  const CardUnits* units;
};

/// Three temperatures in N, mm, tonne; and one with fracture energies and a cohesive law in SI.
constexpr std::array<GoldenCard, 2> kGoldenCards{{
    {"ge1-glass-epoxy", &kMillimetreTonne},
    {"im7-8552", &kSi},
}};

std::string cardOfExample(const GoldenCard& golden, const CardFormat& format) {
  const fs::path source = fs::path(LAMCRAFT_TEST_DATA) / "kit" / "card" / "data" / golden.example;
  MaterialFolder folder = readFolder(source.string());
  folder.path = golden.example;
  return format.write(cardOf(folder, {}, *golden.units));
}

void expectGolden(const fs::path& file, const std::string& card) {
  if (std::getenv("LAMCRAFT_APPROVE") != nullptr) {
    std::ofstream(file, std::ios::binary) << card;
  }
  EXPECT_EQ(card, contentOf(file)) << file;
}

TEST(CardFormats, AreAsAPersonApproved) {
  for (const GoldenCard& golden : kGoldenCards) {
    for (const CardFormat& format : kCardFormats) {
      if (std::string(format.name) == "json") {
        continue;  // its schema and the reader in Python hold it
      }
      const std::string name = std::string(golden.example) + "." + format.name;
      expectGolden(fs::path(LAMCRAFT_TEST_DATA) / "kit" / "card" / "golden" / name,
                   cardOfExample(golden, format));
    }
  }
}

/// The line after the first one that starts like this.
std::string lineAfter(const std::string& text, const std::string& start) {
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind(start, 0) == 0) {
      std::getline(lines, line);
      return line;
    }
  }
  return "nothing";
}

TEST(CalculixCard, HasTheNinthConstantAndTheTemperatureOnASecondLine) {
  const MaterialFolder folder = plyAt({{100.0, "dry"}});
  const std::string card = calculixCard(cardOf(folder, {}, kSi));
  EXPECT_EQ(lineAfter(card, "*ELASTIC, TYPE=ENGINEERING CONSTANTS"),
            "1.000000000E+11, 9.000000000E+09, 8.000000000E+09, 3.000000000E-01, "
            "3.100000000E-01, 4.000000000E-01, 5.000000000E+09, 4.000000000E+09,");
  EXPECT_EQ(lineAfter(card, "1.000000000E+11,"), "3.000000000E+09, 1.000000000E+02");
  EXPECT_EQ(lineAfter(card, "*EXPANSION, TYPE=ORTHO, ZERO=4.500000000E+02"),
            "1.000000000E-07, 3.000000000E-05, 3.100000000E-05, 1.000000000E+02");
  EXPECT_EQ(card.find("*DAMAGE"), std::string::npos) << "CalculiX warns about it";
}

TEST(CalculixCard, SaysWhenThereIsNoDensity) {
  MaterialFolder folder = plyAt({{100.0, "dry"}});
  folder.data.density = 0.0;
  const std::string card = calculixCard(cardOf(folder, {}, kSi));
  EXPECT_EQ(card.find("*DENSITY"), std::string::npos);
  EXPECT_NE(card.find("No density"), std::string::npos);
}

TEST(AbaqusCard, HasHashinsDamageAndACohesiveMaterial) {
  const MaterialFolder folder = plyAt({{100.0, "dry"}});
  const std::string card = abaqusCard(cardOf(folder, {}, kSi));
  // T1, C1, T2, C2, S12, S23; GftC, GfcC, GmnC, GmsC; the temperature last.
  EXPECT_EQ(lineAfter(card, "*DAMAGE INITIATION, CRITERION=HASHIN"),
            "1.000000000E+06, 2.000000000E+06, 3.000000000E+06, 4.000000000E+06, "
            "5.000000000E+06, 6.000000000E+06, 1.000000000E+02");
  EXPECT_EQ(lineAfter(card, "*DAMAGE EVOLUTION, TYPE=ENERGY"),
            "1.000000000E+01, 2.000000000E+01, 4.000000000E+01, 5.000000000E+01, "
            "1.000000000E+02");
  EXPECT_EQ(lineAfter(card, "*MATERIAL, NAME=my_ply_COHESIVE"), "*ELASTIC, TYPE=TRACTION");
  EXPECT_EQ(lineAfter(card, "*ELASTIC, TYPE=TRACTION"),
            "1.000000000E+02, 2.000000000E+02, 3.000000000E+02, 1.000000000E+02");
  EXPECT_EQ(lineAfter(card,
                      "*DAMAGE EVOLUTION, TYPE=ENERGY, MIXED MODE BEHAVIOR=BK, "
                      "POWER=1.200000000E+03"),
            "9.000000000E+02, 1.000000000E+03, 1.100000000E+03, 1.000000000E+02");
}

TEST(AbaqusCard, LeavesOutWhatATemperatureLacks) {
  MaterialFolder folder = plyAt({{100.0, "dry"}, {200.0, "dry"}});
  folder.data.environments[1].fracture.reset();
  folder.data.environments[0].cohesive->at(3).setValue(0.0);
  const std::string card = abaqusCard(cardOf(folder, {}, kSi));
  EXPECT_EQ(card.find("*DAMAGE"), std::string::npos);
  EXPECT_EQ(card.find("TRACTION"), std::string::npos);
  EXPECT_NE(card.find("FRACTURE, are missing at\n**   200 K."), std::string::npos) << card;
  EXPECT_NE(card.find("is missing at 100 K."), std::string::npos) << card;
}

TEST(AbaqusCard, TakesNoCohesiveLawWhoseExponentChanges) {
  MaterialFolder folder = plyAt({{100.0, "dry"}, {200.0, "dry"}});
  folder.data.environments[1].cohesive->at(11).setValue(2.0);
  const std::string card = abaqusCard(cardOf(folder, {}, kSi));
  EXPECT_EQ(card.find("TRACTION"), std::string::npos);
  EXPECT_NE(card.find("alpha of DELAM differs"), std::string::npos);
}

TEST(AbaqusCard, OfAWeaveHasNoHashin) {
  MaterialFolder folder = plyAt({{100.0, "dry"}});
  folder.data.harness = 1;
  const std::string card = abaqusCard(cardOf(folder, {}, kSi));
  EXPECT_EQ(card.find("CRITERION=HASHIN"), std::string::npos);
  EXPECT_NE(card.find("1 along the fill"), std::string::npos);
}

TEST(NastranCard, HasFieldsOfSixteenCharacters) {
  MaterialFolder folder = plyAt({{100.0, "dry"}, {200.0, "dry"}});
  folder.data.environments[0].composite.front().properties[9].setValue(-1.23456789e-107);
  std::istringstream lines(nastranCard(cardOf(folder, {}, kSi)));
  int numbers = 0;
  for (std::string line; std::getline(lines, line);) {
    EXPECT_LE(line.size(), 80U);
    if (line.front() == '$') {
      continue;
    }
    for (std::size_t start = 8; start < line.size() && start < 72; start += 16) {
      const std::string field = line.substr(start, 16);
      const std::size_t blank = field.find(' ');
      EXPECT_EQ(field.find_first_not_of(' ', blank), std::string::npos) << line;
      if (field.find('E') < field.size() && field.find("ENDT") != 0) {
        ++numbers;
        EXPECT_NE(field.find('.'), std::string::npos) << line;
      }
    }
  }
  EXPECT_GT(numbers, 40);
}

TEST(NastranCard, HasTheSolidsStiffnessInItsOwnOrder) {
  const MaterialFolder folder = plyAt({{100.0, "dry"}});
  const std::string card = nastranCard(cardOf(folder, {}, kSi));
  std::istringstream lines(card.substr(card.find("MAT9*")));
  std::vector<double> fields;
  for (std::string line; std::getline(lines, line);) {
    for (std::size_t start = 8; start < std::min<std::size_t>(line.size(), 72); start += 16) {
      fields.push_back(std::strtod(line.substr(start, 16).c_str(), nullptr));
    }
  }
  // MID, then the upper triangle by rows: xy, yz, zx stand at 16, 19 and 21.
  EXPECT_EQ(fields[16], 5e9);  // G12
  EXPECT_EQ(fields[19], 3e9);  // G23
  EXPECT_EQ(fields[21], 4e9);  // G13
  EXPECT_EQ(fields[22], 1600.0);
  EXPECT_EQ(fields[23], 1e-7);
  EXPECT_EQ(fields[25], 3.1e-5);
  EXPECT_EQ(fields[29], 450.0);
}

TEST(AsterCard, HasFunctionsOnlyOverSeveralTemperatures) {
  const MaterialFolder one = plyAt({{100.0, "dry"}});
  const std::string constant = asterCard(cardOf(one, {}, kSi));
  EXPECT_NE(constant.find("ELAS_ORTH=_F("), std::string::npos);
  EXPECT_EQ(constant.find("DEFI_FONCTION"), std::string::npos);
  const MaterialFolder two = plyAt({{100.0, "dry"}, {200.0, "dry"}});
  const std::string variable = asterCard(cardOf(two, {}, kSi));
  EXPECT_NE(variable.find("ELAS_ORTH_FO=_F("), std::string::npos);
  EXPECT_NE(variable.find("TEMP_DEF_ALPHA=4.500000000E+02"), std::string::npos);
}

}  // namespace
}  // namespace lamkit
