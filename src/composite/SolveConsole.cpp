// SPDX-License-Identifier: BSD-3-Clause
#include "composite/SolveConsole.h"

#include <array>
#include <cstdint>

#include "console/Format.h"
#include "console/Messages.h"
#include "console/Output.h"
#include "model/PropertyTables.h"

namespace lamcraft {

namespace {

using console::Output;

// The runs of blanks put the untranslated values of a block into one column.
constexpr const char* kFourBlanks = "    ";
constexpr const char* kFiveBlanks = "     ";
constexpr const char* kSixBlanks = "      ";

/// Printed ahead of the translated label of a count.
constexpr const char* kCountMark = "# ";

void printSet(Output& out, const wchar_t* const label, const PropertySet& set) {
  out.message(label).endLine();
  out.text(propertyLine(set)).endLine();
}

void printError(Output& out,
                const wchar_t* const label,
                const char* const blanks,
                const double error) {
  out.message(label).text(blanks).number(error).endLine();
}

void printCount(Output& out,
                const wchar_t* const label,
                const char* const blanks,
                const std::int32_t count) {
  out.text(kCountMark).message(label).text(blanks).number(count).endLine();
}

void printPrefailFailure(const std::int32_t code) {
  Output out;
  if (code == 1) {
    out.message(console::kCurveBelowFailureStress);
  } else if (code == 2) {
    out.message(console::kCurveLinear);
  }
  out.message(console::kPrefailNotWritten).endLine();
}

}  // namespace

std::string propertyLine(const PropertySet& set) {
  const std::string separator = console::listSeparator();
  std::string line;
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    if (i > 0) {
      line += separator;
    }
    line += kPropertyRows[i].label;
    line += " = ";
    line += console::scientific(set.working()[i]);
  }
  line += '\n';
  return line;
}

void printEnvironmentHeader(const std::size_t number, const std::size_t count) {
  Output()
      .message(console::kSolvingEnvironment)
      .text(" ")
      .number(static_cast<std::int64_t>(number))
      .text(" ")
      .message(console::kOf)
      .text(" ")
      .number(static_cast<std::int64_t>(count))
      .endLine();
}

void printStartValues(const EnvironmentRecord& environment) {
  Output out;
  printSet(out, console::kTargetLamina, environment.lamina);
  printSet(out, console::kStartingFiber, environment.fiber);
  printSet(out, console::kStartingMatrix, environment.matrix);
}

void printConvergedValues(const EnvironmentRecord& environment) {
  Output out;
  out.endLine();
  out.message(console::kSolveFinished).endLine();
  printSet(out, console::kConvergedLamina, environment.lamina);
  printSet(out, console::kFinalFiber, environment.fiber);
  printSet(out, console::kFinalMatrix, environment.matrix);

  const SolveErrors& errors = environment.errors;
  printError(out, console::kInitialMechanicalError, kFourBlanks, errors.initialMechanical);
  printError(out, console::kInitialThermalError, kFourBlanks, errors.initialThermal);
  printError(out, console::kFinalMechanicalError, kFourBlanks, errors.finalMechanical);
  printError(out, console::kFinalThermalError, kFourBlanks, errors.finalThermal);
  out.endLine();
  const SolveIterations& iterations = environment.iterations;
  printCount(out, console::kMechanicalIterations, kFourBlanks, iterations.mechanical);
  printCount(out, console::kThermalIterations, kFourBlanks, iterations.thermal);
  out.endLine();
}

void printFatigueSummary(const EnvironmentRecord& environment) {
  Output out;
  out.endLine();
  out.message(console::kFatigueFinished).endLine();
  const SolveErrors& errors = environment.errors;
  printError(out, console::kInitialFatigueError, kFourBlanks, errors.initialFatigue);
  printError(out, console::kFinalFatigueError, kSixBlanks, errors.finalFatigue);
  printCount(out, console::kFatigueIterations, kFiveBlanks, environment.iterations.fatigue);
}

void printPrefailOutcome(const micromechanics::PrefailOutcome& outcome,
                         const PrefailConstants& constants) {
  if (outcome.failed != 0) {
    printPrefailFailure(outcome.code);
    return;
  }
  struct Row {
    const char* label;
    double value;
  };
  const std::array<Row, 6> rows{{
      {"m:       ", constants.m},
      {"b:       ", constants.b},
      {"thr:     ", constants.thr},
      {"c2mdeg0: ", constants.c2mdeg[0]},
      {"c2mdeg1: ", constants.c2mdeg[1]},
      {"c2mdeg2: ", constants.c2mdeg[2]},
  }};
  Output out;
  out.message(console::kPrefailConstants).endLine();
  for (const Row& row : rows) {
    out.text(row.label).number(row.value).endLine();
  }
}

}  // namespace lamcraft
