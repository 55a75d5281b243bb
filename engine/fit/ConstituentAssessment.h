// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FIT_CONSTITUENTASSESSMENT_H
#define KX_FIT_CONSTITUENTASSESSMENT_H

#include <vector>

#include "fit/Assessment.h"
#include "fit/ConstituentSpace.h"
#include "fit/Linearisation.h"
#include "fit/ThermalFit.h"

namespace kx {

/// The elastic constants of `fitted`, an answer to `problem`, whose residuals scatter by `scatter`.
template <class Problem>
std::vector<AssessedConstant> assessElastic(const Problem& problem,
                                            const Constituents& start,
                                            const Constituents& fitted,
                                            const double scatter,
                                            const bool isExact) {
  using Space = typename Problem::Space;
  const Space space(start);
  const auto z = space.coordinatesOf(fitted);
  const auto from = Space::valuesOf(start);
  const auto to = Space::valuesOf(fitted);
  Eigen::Matrix<double, Problem::kResiduals, 1> residuals;
  Eigen::Matrix<double, Problem::kResiduals, Problem::kParameters> jacobian;
  linearise(problem, z, residuals, jacobian);
  const Uncertainty uncertainty = uncertaintyOf(jacobian, scatter, isExact);
  std::vector<AssessedConstant> constants;
  for (std::size_t i = 0; i < Space::kUnknowns; ++i) {
    const Unknown& unknown = space.unknowns()[i];
    const auto row = static_cast<Eigen::Index>(i);
    const double deviation = uncertainty.standardDeviation(row);
    const auto inUnits = [&](const double value) { return unknown.isRatio() ? 1.0 : value; };
    constants.push_back({unknown.name,
                         from[i],
                         to[i],
                         unknown.width * inUnits(from[i]),
                         z(row),
                         deviation * unknown.width * inUnits(to[i]),
                         deviation,
                         uncertainty.resolution(row),
                         space.isAtBound(i, fitted)});
  }
  return constants;
}

/// The expansions of `fitted`, for its elastic constants as they are.
std::vector<AssessedConstant> assessExpansions(const ExpansionModel& model,
                                               const FitStart& start,
                                               const Constituents& fitted,
                                               const CompositeExpansion& target);

}  // namespace kx

#endif
