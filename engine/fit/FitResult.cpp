// SPDX-License-Identifier: BSD-3-Clause
#include "fit/FitResult.h"

#include <cmath>
#include <limits>

namespace kx {

FitSummary summaryOf(const double initialError,
                     const double error,
                     const double maximumError,
                     const std::int32_t iterations) {
  const auto termination =
      error <= maximumError ? Termination::converged : Termination::bestCompromise;
  return {termination, initialError, error, iterations};
}

FitResult noModel() {
  Properties none;
  for (const auto member : kPropertyOrder<double>) {
    none.*member = std::numeric_limits<double>::quiet_NaN();
  }
  return {{none, none, none}, {}, {}};
}

FitResult reported(FitResult result, const FitOptions& options) {
  if (options.progress) {
    options.progress(result.mechanical.iterations, result.mechanical.finalError);
  }
  return result;
}

void RelativeRms::add(const double value, const double target) {
  const double deviation = value / target - 1.0;
  sum_ += deviation * deviation;
  ++count_;
}

double RelativeRms::value() const {
  return count_ == 0 ? 0.0 : std::sqrt(sum_ / count_);
}

}  // namespace kx
