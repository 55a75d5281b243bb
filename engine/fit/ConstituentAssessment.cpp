// SPDX-License-Identifier: BSD-3-Clause
#include "fit/ConstituentAssessment.h"

#include <algorithm>
#include <cmath>

namespace kx {
namespace {

// A dilatometer's scatter: a part of the expansion, and what it resolves [1/K].
constexpr double kExpansionScatter = 0.05;
constexpr double kLeastExpansionScatter = 0.2e-6;
constexpr double kRankTolerance = 1e-3;  // as in the fit

}  // namespace

std::vector<AssessedConstant> assessExpansions(const ExpansionModel& model,
                                               const FitStart& start,
                                               const Constituents& fitted,
                                               const CompositeExpansion& target) {
  const auto unknowns = expansionUnknowns(start);
  Eigen::MatrixXd jacobian = expansionSensitivity(model, fitted, unknowns);
  for (Eigen::Index i = 0; i < target.size(); ++i) {
    const double scatter =
        std::max(kExpansionScatter * std::abs(target(i)), kLeastExpansionScatter);
    jacobian.row(i) *= target(i) == 0.0 ? 0.0 : 1.0 / scatter;
  }
  const Uncertainty uncertainty = uncertaintyOf(jacobian, 1.0, true, kRankTolerance);
  std::vector<AssessedConstant> constants;
  for (std::size_t k = 0; k < unknowns.size(); ++k) {
    const ExpansionUnknown& unknown = unknowns[k];
    const auto row = static_cast<Eigen::Index>(k);
    const double from = start.constituents.*unknown.phase.*unknown.member;
    const double to = fitted.*unknown.phase.*unknown.member;
    constants.push_back({unknown.name,
                         from,
                         to,
                         unknown.width,
                         (to - from) / unknown.width,
                         uncertainty.standardDeviation(row) * unknown.width,
                         uncertainty.standardDeviation(row),
                         uncertainty.resolution(row),
                         false});
  }
  return constants;
}

}  // namespace kx
