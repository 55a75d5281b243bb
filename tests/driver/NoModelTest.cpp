// SPDX-License-Identifier: BSD-3-Clause
// Decks from which the engine cannot build a model: the run ends with exit code 2, names the
// environment and writes no data file.

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ProcessRun.h"
#include "support/TemporaryFolder.h"

namespace lamcraft::test {
namespace {

using testing::HasSubstr;

struct NoModelDeck {
  std::string name;
  std::string text;
};

std::ostream& operator<<(std::ostream& out, const NoModelDeck& deck) {
  return out << deck.name;
}

/// The parts of an environment that a test takes away or spoils.
struct Environment {
  std::string lamina = "*LAMINA\n126e9, 11e9, 0.28, 0.4, 6.6e9, -1e-6, 26e-6\n";
  std::string fiber = "*FIBER\n225e9, 15e9, 0.2, 0.07, 15e9, -5e-7, 15e-6\n";
  std::string matrix = "*MATRIX, LAW=ISO\n4.2e9, 0.34, 45e-6\n";

  [[nodiscard]] std::string text() const {
    return "*ENVIRONMENT, MOISTURE=DRY, TEMPERATURE=296\n" + lamina + fiber + matrix +
           "*STRENGTHS\n1950e6, 1480e6, 48e6, 200e6, 79e6, 55e6\n";
  }
};

std::string uniDeck(const std::string& fraction,
                    const Environment& environment = {},
                    const std::string& system = "CFRP") {
  return "*MATERIAL, TYPE=UNI, SYSTEM=" + system + ", NAME=PLY\n1\n" + fraction +
         environment.text();
}

Environment wovenEnvironment() {
  Environment environment;
  environment.lamina =
      "*LAMINA\n66e9, 65e9, 9.5e9, 0.05, 0.4, 0.4, 4.8e9, 3.6e9, 3.6e9, 2e-6, 2e-6, 5e-5\n";
  return environment;
}

std::string wovenDeck(const std::string& fractions,
                      const Environment& environment = wovenEnvironment()) {
  return "*MATERIAL, TYPE=PLAINWEAVE, SYSTEM=CFRP, NAME=PLY\n1\n" + fractions + environment.text();
}

std::vector<NoModelDeck> decks() {
  const std::string fvf = "*FVF\n0.6\n";
  const auto with = [](Environment environment, std::string Environment::*part, const char* text) {
    environment.*part = text;
    return environment;
  };
  constexpr auto kFiber = &Environment::fiber;
  constexpr auto kMatrix = &Environment::matrix;
  const char* const kIncompressible = "*MATRIX, LAW=ISO\n4.2e9, 0.5, 45e-6\n";
  const char* const kNegative = "*FIBER\n-225e9, 15e9, 0.2, 0.07, 15e9, -5e-7, 15e-6\n";
  const char* const kDefault = "*FIBER, DEFAULT\n";
  return {
      {"FractionInPerCent", uniDeck("*FVF\n60\n")},
      {"FractionZero", uniDeck("*FVF\n0\n")},
      {"FractionOne", uniDeck("*FVF\n1\n")},
      {"FractionNegative", uniDeck("*FVF\n-0.6\n")},
      {"FractionMissing", uniDeck("")},
      {"NoFiber", uniDeck(fvf, with({}, kFiber, ""))},
      {"NoMatrix", uniDeck(fvf, with({}, kMatrix, ""))},
      {"DefaultsOfAnUnknownSystem", uniDeck(fvf, with({}, kFiber, kDefault), "XYZ")},
      {"IncompressibleMatrix", uniDeck(fvf, with({}, kMatrix, kIncompressible))},
      {"NegativeModulus", uniDeck(fvf, with({}, kFiber, kNegative))},
      {"TowsWithoutRoom", wovenDeck(fvf + "*BVF\n0.6, 0.5\n")},
      {"TowsThatFillThePly", wovenDeck(fvf + "*BVF\n0.5, 0.5\n")},
      {"TowsInPerCent", wovenDeck(fvf + "*BVF\n40, 40\n")},
      {"TowsMissing", wovenDeck(fvf)},
      {"FractionInTowInPerCent", wovenDeck("*FVF\n60\n*BVF\n0.4, 0.4\n")},
      {"NoFiberInAWeave",
       wovenDeck(fvf + "*BVF\n0.4, 0.4\n", with(wovenEnvironment(), kFiber, ""))},
      {"IncompressibleMatrixOfAWeave",
       wovenDeck(fvf + "*BVF\n0.4, 0.4\n", with(wovenEnvironment(), kMatrix, kIncompressible))}};
}

ProcessResult runWithTheEngine(const TemporaryFolder& folder) {
  return run({LAMCRAFT_PROGRAM,
              {"deck.qdk", "out"},
              {{"LD_LIBRARY_PATH", LAMCRAFT_ENGINE_FOLDER}},
              folder.path().string()});
}

class NoModel : public testing::TestWithParam<NoModelDeck> {};

TEST_P(NoModel, EndsTheRunWithoutADataFile) {
  const TemporaryFolder folder;
  folder.write("deck.qdk", GetParam().text);
  const ProcessResult result = runWithTheEngine(folder);
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_THAT(result.out, HasSubstr("environment 1"));
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "out" / "mdata.xml"));
}

INSTANTIATE_TEST_SUITE_P(Decks, NoModel, testing::ValuesIn(decks()), [](const auto& deck) {
  return deck.param.name;
});

TEST(NoModelEnvironment, EndsTheRunWithTheGoodOnesBeforeIt) {
  Environment bad;
  bad.matrix = "*MATRIX, LAW=ISO\n4.2e9, 0.5, 45e-6\n";
  const TemporaryFolder folder;
  folder.write("deck.qdk", uniDeck("*FVF\n0.6\n") + bad.text());
  const ProcessResult result = runWithTheEngine(folder);
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_THAT(result.out, HasSubstr("environment 2"));
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "out" / "mdata.xml"));
}

TEST(NoModelEnvironment, IsNoneWithoutATarget) {
  Environment forward;
  forward.lamina = "";
  const TemporaryFolder folder;
  folder.write("deck.qdk", uniDeck("*FVF\n0.6\n", forward));
  const ProcessResult result = runWithTheEngine(folder);
  EXPECT_EQ(result.exitCode, 0) << result.out;
  EXPECT_THAT(result.out, HasSubstr("Final mechanical error:    0\n"));
  EXPECT_TRUE(std::filesystem::exists(folder.path() / "out" / "mdata.xml"));
}

}  // namespace
}  // namespace lamcraft::test
