// SPDX-License-Identifier: BSD-3-Clause
#include "card/CardText.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "kit/card/TestFolder.h"

namespace lamkit {
namespace {

TEST(CardNumber, HasTenDigitsInAtMostTwentyCharacters) {
  EXPECT_EQ(cardNumber(4304000000.000001), "4.304000000E+09");
  EXPECT_EQ(cardNumber(-1e-6), "-1.000000000E-06");
  EXPECT_EQ(cardNumber(0.0), "0.000000000E+00");
  for (const double value : {1.7e308, -1.7e308, -std::numeric_limits<double>::min(), 1.0 / 3.0}) {
    EXPECT_LE(cardNumber(value).size(), 20U);
    // Half a unit of the tenth digit.
    EXPECT_NEAR(std::strtod(cardNumber(value).c_str(), nullptr) / value, 1.0, 5e-10);
  }
}

TEST(ShortNumber, IsForPeople) {
  EXPECT_EQ(shortNumber(296.15), "296.15");
  EXPECT_EQ(shortNumber(300.0), "300");
}

TEST(Comment, BreaksLinesAndMarksEach) {
  std::string text;
  for (int i = 0; i < 60; ++i) {
    text += "word ";
  }
  std::istringstream lines(commentOf("**", text));
  int count = 0;
  for (std::string line; std::getline(lines, line); ++count) {
    EXPECT_LE(line.size(), 80U);
    EXPECT_EQ(line.rfind("** ", 0), 0U);
  }
  EXPECT_GT(count, 2);
}

TEST(Comment, LetsNoControlCharacterStartALineOfItsOwn) {
  EXPECT_EQ(commentOf("**", "a\n*MATERIAL\r*b"), "** a?*MATERIAL?*b\n");
}

TEST(Head, TellsUnitsSourceAndVerdict) {
  const MaterialFolder folder = test::plyAt({{296.0, "dry"}, {233.0, "dry"}});
  CardMaterial card = cardOf(folder, {}, kMillimetreTonne);
  const std::string good = headOf(card, "#", "Remark");
  EXPECT_NE(good.find("# my ply\n# Remark\n# Units: N, mm, tonne, s, K (stress in MPa)\n"),
            std::string::npos);
  EXPECT_NE(good.find("mdata.xml of out/ply, environments 2 (233 K), 1 (296 K), dry"),
            std::string::npos);
  EXPECT_NE(good.find("# Verdict: good\n"), std::string::npos);

  Finding note;
  note.message = "a note";
  Finding warning;
  warning.severity = Severity::warning;
  warning.message = "a warning";
  warning.rule = "misfit";
  card.findings = {note, warning};
  const std::string doubtful = headOf(card, "#", "Remark");
  EXPECT_NE(doubtful.find("# Verdict: doubtful\n# warning: a warning [misfit]\n"),
            std::string::npos);
  EXPECT_EQ(doubtful.find("a note"), std::string::npos);
}

}  // namespace
}  // namespace lamkit
