// SPDX-License-Identifier: BSD-3-Clause
#include "kit/check/support/CheckPromises.h"

#include <exception>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "abqinp/DeckParser.h"
#include "check/Check.h"
#include "composite/MicromechanicsCalls.h"
#include "composite/SolveCheck.h"
#include "composite/UnitConversion.h"
#include "material/Interpretation.h"
#include "model/Constituent.h"

namespace lamkit::test {

namespace {

std::vector<std::string> linesOf(const std::string& deck) {
  std::vector<std::string> lines;
  std::istringstream in(deck);
  for (std::string line; std::getline(in, line);) {
    lines.push_back(line);
  }
  return lines;
}

/// The program's fit of every environment, without its console.
void fitAll(lamcraft::Composite& composite) {
  using namespace lamcraft;
  constexpr std::size_t kRows = 2;
  const double fraction = composite.get(constituents::kFiber).volumeFraction.value();
  convertToBaseUnits(composite);
  for (EnvironmentRecord& environment : composite.environments) {
    environment.resultRows.resize(kRows);
    micromechanics::setIsotropyFlag(environment);
    micromechanics::fitUnidirectional(fraction, environment);
    if (!setWithoutNumbers(environment).empty()) {
      throw std::runtime_error("no numbers");
    }
  }
}

/// Why the program refuses the deck; empty when it does not.
std::string refusal(const std::vector<std::string>& lines) {
  abqinp::DeckParser parser;
  for (const std::string& line : lines) {
    parser.addLine(line);
  }
  try {
    lamcraft::Interpretation interpretation;
    for (const abqinp::Keyword& keyword : parser.finish()) {
      interpretation.interpret(keyword);
    }
    std::ostringstream reasons;
    if (!interpretation.hasComposite() || !interpretation.composite().validate(reasons)) {
      return "not valid: " + reasons.str();
    }
    if (!interpretation.composite().isWoven()) {
      fitAll(interpretation.composite());
    }
  } catch (const std::exception& error) {
    return error.what() + std::string(" ");
  }
  return {};
}

/// Lone carriage returns end lines for the check, which goes on behind them.
std::vector<std::string> checkedLines(std::string deck) {
  for (std::size_t i = 0; i + 1 < deck.size(); ++i) {
    if (deck[i] == '\r' && deck[i + 1] != '\n' && deck[i + 1] != '\r') {
      deck[i] = '\n';
    }
  }
  return linesOf(deck);
}

bool standsInDeck(const Finding& finding,
                  const std::vector<std::string>& lines,
                  const std::vector<std::string>& otherLines) {
  if (finding.line == 0) {
    return finding.column == 0;
  }
  const auto holds = [&](const std::vector<std::string>& all) {
    // Behind the last byte stands what is missing.
    return finding.line <= all.size() && finding.column >= 1 &&
           finding.column <= all[finding.line - 1].size() + 1;
  };
  return holds(lines) || holds(otherLines);
}

}  // namespace

std::string brokenPromise(const std::string& deck) {
  CheckOptions options;
  options.withFolders = false;
  options.withWeaves = false;
  const std::vector<Finding> findings = checkDeckText(deck, options);
  const std::vector<std::string> lines = linesOf(deck);
  const std::vector<std::string> otherLines = checkedLines(deck);
  for (const Finding& finding : findings) {
    if (!standsInDeck(finding, lines, otherLines)) {
      return "a finding of " + finding.rule + " stands on line " + std::to_string(finding.line) +
             ", column " + std::to_string(finding.column) + ", which is not in the deck";
    }
  }
  if (worst(findings) == Severity::error) {
    return {};
  }
  const std::string why = refusal(lines);
  return why.empty() ? std::string() : "no error, but the program refuses the deck: " + why;
}

}  // namespace lamkit::test
