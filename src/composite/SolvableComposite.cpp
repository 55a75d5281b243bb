// SPDX-License-Identifier: BSD-3-Clause
#include "composite/SolvableComposite.h"

#include <string>

#include "composite/SolveCheck.h"
#include "composite/SolveConsole.h"
#include "composite/SolveMonitor.h"
#include "composite/UnitConversion.h"
#include "model/LamcraftException.h"

namespace lamcraft {

int SolvableComposite::solve(const std::string& folder) {
  printTitle();
  convertToBaseUnits(*this);
  if (environments.empty()) {
    return 0;
  }
  const SolveMonitor monitor;
  const std::size_t count = environments.size();
  for (std::size_t i = 0; i < count; ++i) {
    printEnvironmentHeader(i + 1, count);
    solveEnvironment(folder, environments[i]);
    if (const std::string set = setWithoutNumbers(environments[i]); !set.empty()) {
      throw LamcraftException("The micromechanics library found no numbers for the " + set +
                              " of environment " + std::to_string(i + 1) + ".");
    }
  }
  return 0;
}

void SolvableComposite::solveEnvironment(const std::string& folder,
                                         EnvironmentRecord& environment) const {
  environment.resultRows.resize(resultRowCount());
  printStartValues(environment);
  fit(folder, environment);
  if (presence.nlShear && !environment.shearStress.empty()) {
    runPrefail(folder, environment);
  }
  for (PropertySet* const set : {&environment.lamina, &environment.fiber, &environment.matrix}) {
    set->publish();
  }
  printConvergedValues(environment);
  finish(folder, environment);
  printFatigueSummary(environment);
}

void SolvableComposite::runPrefail(const std::string& folder,
                                   EnvironmentRecord& environment) const {
  const micromechanics::PrefailOutcome outcome = reduceShear(folder, environment);
  printPrefailOutcome(outcome, environment.prefail);
  if (outcome.failed != 0) {
    // Without a curve the data files carry no prefail data for this environment.
    environment.shearStress.clear();
    environment.shearStrain.clear();
  }
}

}  // namespace lamcraft
