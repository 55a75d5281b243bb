// SPDX-License-Identifier: BSD-3-Clause
#include "composite/SolveConsole.h"

#include <gtest/gtest.h>

namespace lamcraft {
namespace {

template <typename Print>
std::string printed(Print print) {
  testing::internal::CaptureStdout();
  print();
  return testing::internal::GetCapturedStdout();
}

EnvironmentRecord sampleEnvironment() {
  EnvironmentRecord environment("DRY", 296.0);
  environment.errors = {0.5, 0.25, 0.125, 1e-9, 2.0, 3.0};
  environment.iterations = {11, 12, 13};
  return environment;
}

TEST(SolveConsole, PropertyLineNamesTwelveValues) {
  PropertySet set;
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    set.working()[i] = 1.5e5 * static_cast<double>(i);
  }
  EXPECT_EQ(propertyLine(set),
            "E11 =  0.000e+00, E22 =  1.500e+05, E33 =  3.000e+05, v12 =  4.500e+05, "
            "v13 =  6.000e+05, v23 =  7.500e+05, G12 =  9.000e+05, G13 =  1.050e+06, "
            "G23 =  1.200e+06, A11 =  1.350e+06, A22 =  1.500e+06, A33 =  1.650e+06\n");
}

TEST(SolveConsole, HeaderCountsEnvironments) {
  EXPECT_EQ(printed([] { printEnvironmentHeader(2, 14); }), "Solving environment 2 of 14\n");
}

TEST(SolveConsole, EverySetIsFollowedByAnEmptyLine) {
  const EnvironmentRecord environment("DRY", 296.0);
  const std::string set = propertyLine(environment.lamina) + "\n";
  EXPECT_EQ(printed([&] { printStartValues(environment); }),
            "Target lamina properties:\n" + set + "Starting fiber properties:\n" + set +
                "Starting matrix properties:\n" + set);
}

TEST(SolveConsole, InitialErrorsComeBeforeFinalOnes) {
  const EnvironmentRecord environment = sampleEnvironment();
  const std::string set = propertyLine(environment.lamina) + "\n";
  EXPECT_EQ(printed([&] { printConvergedValues(environment); }),
            "\nMechanical and Thermal Solve finished\n"
            "Converged lamina properties:\n" +
                set + "Final fiber properties:\n" + set + "Final matrix properties:\n" + set +
                "Initial mechanical error:    0.5\n"
                "Initial thermal error:    0.125\n"
                "Final mechanical error:    0.25\n"
                "Final thermal error:    1e-09\n"
                "\n"
                "# Mechanical iterations:    11\n"
                "# Thermal iterations:    12\n"
                "\n");
}

TEST(SolveConsole, FatigueValuesStandInOneColumn) {
  EXPECT_EQ(printed([] { printFatigueSummary(sampleEnvironment()); }),
            "\nFatigue Solve finished\n"
            "Initial Fatigue error:    2\n"
            "Final Fatigue error:      3\n"
            "# Fatigue iterations:     13\n");
}

TEST(SolveConsole, PrefailConstantsArePaddedToNineCharacters) {
  const PrefailConstants constants{-8e-9, 1.16, 2e7, {0.25, 0.5, 0.75}};
  EXPECT_EQ(printed([&] { printPrefailOutcome({}, constants); }),
            "Prefail Material Constants:\n"
            "m:       -8e-09\n"
            "b:       1.16\n"
            "thr:     2e+07\n"
            "c2mdeg0: 0.25\n"
            "c2mdeg1: 0.5\n"
            "c2mdeg2: 0.75\n");
}

constexpr const char* kNotWritten =
    "Prefail material data will not be written to the material data file for this environment.\n";

TEST(SolveConsole, PrefailFailureSaysWhyAndWhatFollowsOnOneLine) {
  EXPECT_EQ(printed([] {
              printPrefailOutcome({1, 1}, {});
            }),
            std::string("FATAL ERROR: Stress Strain data does not reach failure stress for prefail "
                        "nonlinearity. ") +
                kNotWritten);
  EXPECT_EQ(printed([] {
              printPrefailOutcome({1, 2}, {});
            }),
            std::string("FATAL ERROR: Stress Strain data is linear for prefail nonlinearity. ") +
                kNotWritten);
}

TEST(SolveConsole, PrefailFailureWithAnotherCodeSaysOnlyWhatFollows) {
  EXPECT_EQ(printed([] { printPrefailOutcome({1, 3}, {}); }), kNotWritten);
}

}  // namespace
}  // namespace lamcraft
