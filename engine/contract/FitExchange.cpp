#include "contract/FitExchange.h"

#include <algorithm>

#include "contract/Arguments.h"

namespace kx {

FitOptions fitOptions(const CompositeKind kind) {
  auto& state = EngineState::instance();
  const auto limits = state.maximumErrors(kind);
  FitOptions options;
  options.maximumMechanicalError = limits.mechanical;
  options.maximumThermalError = limits.thermal;
  options.isotropicMatrix = state.isMatrixIsotropic();
  options.progress = [&state](std::int32_t iteration, double error) {
    state.status().report(iteration, error);
  };
  return options;
}

void writeSummary(const FitSummary& summary, double* errors, std::int32_t* iterations) {
  const bool hasRun = summary.initialError >= 0.0 && summary.finalError >= 0.0;
  errors[0] = hasRun ? summary.initialError : kNoFitError;
  errors[1] = hasRun ? summary.finalError : kNoFitError;
  *iterations = std::max(summary.iterations, std::int32_t{0});
}

}  // namespace kx
