// SPDX-License-Identifier: BSD-3-Clause
#include "contract/FitExchange.h"

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
  errors[0] = summary.initialError;
  errors[1] = summary.finalError;
  *iterations = summary.iterations;
}

}  // namespace kx
