// SPDX-License-Identifier: BSD-3-Clause
// Solves with the stand-in library, which writes down every call: what is called, with what, and
// what the console says beside it.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "composite/SatinWeave.h"
#include "composite/Uni.h"
#include "support/Environment.h"
#include "support/TemporaryFolder.h"

namespace lamcraft {
namespace {

/// A solve's traces.
struct Trace {
  std::string console;
  std::string calls;

  /// How often a function was called.
  [[nodiscard]] std::size_t count(const std::string& function) const {
    std::istringstream lines(calls);
    std::size_t found = 0;
    for (std::string line; std::getline(lines, line);) {
      found += line == function ? 1 : 0;
    }
    return found;
  }

  /// The values of an argument, in the order of the function's calls.
  [[nodiscard]] std::vector<std::string> values(const std::string& function,
                                                const std::string& argument) const {
    const std::string label = "  " + argument + ": ";
    std::istringstream lines(calls);
    std::vector<std::string> found;
    bool isInside = false;
    for (std::string line; std::getline(lines, line);) {
      if (line.compare(0, 1, " ") != 0) {
        isInside = line == function;
      } else if (isInside && line.compare(0, label.size(), label) == 0) {
        found.push_back(line.substr(label.size()));
      }
    }
    return found;
  }

  [[nodiscard]] bool says(const std::string& text) const {
    return console.find(text) != std::string::npos;
  }
};

using Texts = std::vector<std::string>;

class Solve : public testing::Test {
 protected:
  void TearDown() override {
    for (const char* const name : {"KXFAKE_LOG", "KXFAKE_PREFAIL", "KXFAKE_PREFAIL_FLAG"}) {
      test::removeVariable(name);
    }
  }

  static Trace solve(Composite& composite) {
    const test::TemporaryFolder folder;
    const std::string log = folder.write("calls.txt", "");
    test::setVariable("KXFAKE_LOG", log);
    testing::internal::CaptureStdout();
    EXPECT_EQ(composite.solve("folder"), 0);
    Trace trace;
    trace.console = testing::internal::GetCapturedStdout();
    trace.calls = test::contentOf(log);
    // The library writes text, whose lines end with two characters on Windows.
    trace.calls.erase(std::remove(trace.calls.begin(), trace.calls.end(), '\r'), trace.calls.end());
    return trace;
  }

  static std::unique_ptr<SatinWeave> weave(const std::int32_t harness) {
    auto made = std::make_unique<SatinWeave>("glass", "epoxy", harness);
    made->materialName = "NAME";
    made->addEnvironment("DRY", 296.0);
    return made;
  }

  static std::unique_ptr<Uni> uniWithCurve() {
    auto made = std::make_unique<Uni>("glass", "epoxy");
    made->presence.nlShear = true;
    EnvironmentRecord& environment = made->addEnvironment("DRY", 296.0);
    environment.shearStress = {1.0, 2.0};
    environment.shearStrain = {0.1, 0.3};
    return made;
  }
};

// ---- monitor

TEST_F(Solve, WaitsForNoStatusOfTheLibrary) {
  test::setVariable("KXFAKE_STATUS_WAITS", "1");
  const auto uni = uniWithCurve();
  EXPECT_EQ(solve(*uni).count("UNI_OPTIMIZATION"), 1U);
  test::removeVariable("KXFAKE_STATUS_WAITS");
}

TEST_F(Solve, OfNoEnvironmentsHasNoMonitor) {
  test::setVariable("KXFAKE_ITERATION", "7");
  Uni uni("glass", "epoxy");
  uni.materialName = "NAME";
  EXPECT_EQ(solve(uni).console, "Solving unidirectional composite:NAME\n");
  test::removeVariable("KXFAKE_ITERATION");
}

// ---- kinds of weave

TEST_F(Solve, OfAPlainWeaveRunsFatigueWithTestData) {
  const auto plain = weave(1);
  plain->presence.snData = true;
  const Trace trace = solve(*plain);
  EXPECT_TRUE(trace.says("Solving plain weave composite: \nNAME\n\nSolving environment 1 of 1\n"));
  EXPECT_EQ(trace.count("WEAVE_DAMAGE_STATE"), 18U + 8U);
  EXPECT_EQ(trace.count("FAT_DCMP_PROPS"), 8U);
  EXPECT_EQ(trace.count("FATIGUE_PW_OPTI"), 1U);
  EXPECT_EQ(trace.values("WEAVE_OPTIMIZATION", "satin"), Texts{"0"});
  EXPECT_EQ(trace.values("WEAVE_DAMAGE_STATE", "satin"), Texts(26, "0"));
}

TEST_F(Solve, OfHarnessZeroIsPlainInTitleAndStatesButSatinInTheFit) {
  const auto odd = weave(0);
  odd->presence.snData = true;
  odd->presence.nlShear = true;
  odd->environments[0].shearStress = {1.0};
  odd->environments[0].shearStrain = {0.1};
  const Trace trace = solve(*odd);
  EXPECT_TRUE(trace.says("Solving plain weave composite: \n"));
  EXPECT_EQ(trace.values("WEAVE_OPTIMIZATION", "harness"), Texts{"0"});
  EXPECT_EQ(trace.values("WEAVE_OPTIMIZATION", "satin"), Texts{"1"});
  EXPECT_EQ(trace.values("WEAVE_PREFAIL", "satin"), Texts{"1"});
  EXPECT_EQ(trace.values("WEAVE_DAMAGE_STATE", "satin"), Texts(18, "0"));
  EXPECT_EQ(trace.values("WEAVE_DAMAGE_STATE", "folder"), Texts(18, "\"DUMB\""));
  EXPECT_EQ(trace.count("FATIGUE_PW_OPTI"), 0U) << "only harness 1 has a fatigue step";
}

class Satins : public Solve, public testing::WithParamInterface<std::int32_t> {};

TEST_P(Satins, HandTheFolderToEveryStateAndNeverRunFatigue) {
  const auto satin = weave(GetParam());
  satin->presence.snData = true;
  const Trace trace = solve(*satin);
  const std::string harness = std::to_string(GetParam());
  EXPECT_TRUE(trace.says("Solving " + harness + " harness satin weave composite\nNAME\n\n"));
  EXPECT_EQ(trace.values("WEAVE_OPTIMIZATION", "satin"), Texts{"1"});
  EXPECT_EQ(trace.values("WEAVE_DAMAGE_STATE", "harness"), Texts(18, harness));
  EXPECT_EQ(trace.values("WEAVE_DAMAGE_STATE", "satin"), Texts(18, "1"));
  EXPECT_EQ(trace.values("WEAVE_DAMAGE_STATE", "folder"), Texts(18, "\"folder\""));
  EXPECT_EQ(trace.count("FATIGUE_PW_OPTI"), 0U);
  EXPECT_TRUE(trace.says("Fatigue Solve finished\n")) << "the summary comes without a step too";
}

INSTANTIATE_TEST_SUITE_P(Solve, Satins, testing::Values(4, 5, 8));

TEST_F(Solve, OfASatinHasItsTitleOnTheWideStreamAndItsNameOnTheNarrowOne) {
  SatinWeave satin("glass", "epoxy", 5);
  satin.materialName = "NAME";
  std::ostringstream narrow;
  std::wostringstream wide;
  std::streambuf* const narrowBefore = std::cout.rdbuf(narrow.rdbuf());
  std::wstreambuf* const wideBefore = std::wcout.rdbuf(wide.rdbuf());
  satin.solve("folder");
  std::cout.rdbuf(narrowBefore);
  std::wcout.rdbuf(wideBefore);
  EXPECT_EQ(wide.str(), L"Solving 5 harness satin weave composite\n");
  EXPECT_EQ(narrow.str(), "NAME\n\n");
}

TEST_F(Solve, OfAPlainWeaveWithoutTestDataOnlySumsUp) {
  const auto plain = weave(1);
  plain->environments[0].errors.finalFatigue = 0.5;
  const Trace trace = solve(*plain);
  EXPECT_EQ(trace.count("FAT_DCMP_PROPS"), 0U);
  EXPECT_EQ(trace.count("FATIGUE_PW_OPTI"), 0U);
  EXPECT_FALSE(trace.says("for fatigue"));
  EXPECT_TRUE(trace.says("Calculating weave damage state 18\n\n\nFatigue Solve finished\n"));
  EXPECT_TRUE(trace.says("Final Fatigue error:      0.5\n"));
}

TEST_F(Solve, WithoutEnvironmentsIsATitle) {
  SatinWeave plain("glass", "epoxy", 1);
  plain.materialName = "NAME";
  const Trace trace = solve(plain);
  EXPECT_EQ(trace.console, "Solving plain weave composite: \nNAME\n\n");
  EXPECT_EQ(trace.calls, "");
}

// ---- damage states

TEST_F(Solve, OfAWeaveWithoutStatesStillFitsFatigueOnce) {
  const auto plain = weave(1);
  plain->presence.snData = true;
  plain->environments[0].damageStates.clear();
  plain->environments[0].fatigueDamageStates.clear();
  const Trace trace = solve(*plain);
  EXPECT_FALSE(trace.says("Calculating weave damage state "));
  EXPECT_TRUE(trace.says("\n\n\nCalculating weave damage states for fatigue\n"));
  EXPECT_EQ(trace.count("WEAVE_DAMAGE_STATE"), 0U);
  EXPECT_EQ(trace.count("FAT_DCMP_PROPS"), 0U);
  EXPECT_EQ(trace.count("FATIGUE_PW_OPTI"), 1U);
}

TEST_F(Solve, CountsTestsOnlyForFatigueStates) {
  const auto plain = weave(1);
  plain->presence.snData = true;
  plain->environments[0].snRecords.assign(3, {1e6, 1e4, 10.0, 0.0, 0.1});
  const Trace trace = solve(*plain);
  Texts expected(18, "0");
  expected.insert(expected.end(), 8, "3");
  EXPECT_EQ(trace.values("WEAVE_DAMAGE_STATE", "snCount"), expected);
  EXPECT_EQ(trace.values("FATIGUE_PW_OPTI", "snCount"), Texts{"3"});
}

// ---- target

TEST_F(Solve, OfAWeaveSendsAMissingShearModulusAsMinusOne) {
  for (const double missing : {0.0, -4.0}) {
    const auto plain = weave(1);
    plain->environments[0].lamina.working(Property::g13) = missing;
    EXPECT_EQ(solve(*plain).values("WEAVE_OPTIMIZATION", "lamina"),
              Texts{"0 0 0 0 0 0 0 -1 0 0 0 0"});
  }
}

TEST_F(Solve, OfAWeaveKeepsAGivenShearModulus) {
  const auto plain = weave(1);
  plain->environments[0].lamina.working(Property::g13) = 0.5;
  EXPECT_EQ(solve(*plain).values("WEAVE_OPTIMIZATION", "lamina"),
            Texts{"0 0 0 0 0 0 0 0.5 0 0 0 0"});
}

// ---- prefail

TEST_F(Solve, SkipsPrefailWithoutACurve) {
  const auto uni = uniWithCurve();
  uni->addEnvironment("WET", 296.0);
  EXPECT_EQ(solve(*uni).values("PREFAIL", "stress"), Texts{"1 2"}) << "of the first environment";

  const auto plain = weave(1);
  plain->presence.nlShear = true;
  const Trace trace = solve(*plain);
  EXPECT_EQ(trace.count("WEAVE_PREFAIL"), 0U);
  EXPECT_FALSE(trace.says("refail"));
}

TEST_F(Solve, SkipsPrefailWithoutTheKeyword) {
  const auto uni = uniWithCurve();
  uni->presence.nlShear = false;
  EXPECT_EQ(solve(*uni).count("PREFAIL"), 0U);
}

TEST_F(Solve, AnyFailureOfPrefailDropsTheCurveAndKeepsTheConstants) {
  for (const char* const code : {"0", "1", "2", "3"}) {
    test::setVariable("KXFAKE_PREFAIL", code);
    test::setVariable("KXFAKE_PREFAIL_FLAG", "1");
    const auto uni = uniWithCurve();
    const Trace trace = solve(*uni);
    const EnvironmentRecord& environment = uni->environments[0];
    EXPECT_TRUE(trace.says("Prefail material data will not be written")) << code;
    EXPECT_FALSE(trace.says("Prefail Material Constants:")) << code;
    EXPECT_TRUE(environment.shearStress.empty()) << code;
    EXPECT_TRUE(environment.shearStrain.empty()) << code;
    EXPECT_GT(environment.prefail.m, 0.0) << "what the library wrote";
  }
}

TEST_F(Solve, ACodeWithoutTheFlagIsNoFailure) {
  test::setVariable("KXFAKE_PREFAIL", "2");
  test::setVariable("KXFAKE_PREFAIL_FLAG", "0");
  const auto uni = uniWithCurve();
  const Trace trace = solve(*uni);
  EXPECT_TRUE(trace.says("Prefail Material Constants:\nm:       "));
  EXPECT_FALSE(trace.says("FATAL"));
  EXPECT_EQ(uni->environments[0].shearStress.size(), 2U);
}

}  // namespace
}  // namespace lamcraft
