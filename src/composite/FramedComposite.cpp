#include "composite/FramedComposite.h"

#include <string>

#include "composite/SolveCheck.h"
#include "composite/SolveConsole.h"
#include "composite/SolveMonitor.h"
#include "composite/UnitConversion.h"
#include "model/LamcraftException.h"

namespace lamcraft {

int FramedComposite::solve(const std::string& folder) {
  printTitle();
  convertToBaseUnits(*this);
  const SolveMonitor monitor;
  const std::size_t count = environments.size();
  for (std::size_t i = 0; i < count; ++i) {
    printEnvironmentHeader(i + 1, count);
    solveEnvironment(folder, environments[i]);
    if (!holdsNumbers(environments[i])) {
      throw LamcraftException("The micromechanics library found no numbers for environment " +
                              std::to_string(i + 1) + ".");
    }
  }
  return 0;
}

void FramedComposite::solveEnvironment(const std::string& folder,
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

void FramedComposite::runPrefail(const std::string& folder, EnvironmentRecord& environment) const {
  const micromechanics::PrefailOutcome outcome = reduceShear(folder, environment);
  printPrefailOutcome(outcome, environment.prefail);
  if (outcome.failed != 0) {
    // Without a curve the data files carry no prefail data for this environment.
    environment.shearStress.clear();
    environment.shearStrain.clear();
  }
}

}  // namespace lamcraft
