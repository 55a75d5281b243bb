// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FIT_LINEARISATION_H
#define KX_FIT_LINEARISATION_H

#include <array>

#include <ceres/jet.h>
#include <Eigen/Core>

namespace kx {

/// The residuals of a problem (see BoundedLeastSquares) at z, and their derivatives by dual
/// numbers, into anything of Problem::kResiduals rows.
template <class Problem, class Residuals, class Jacobian>
void linearise(const Problem& problem,
               const Eigen::Matrix<double, Problem::kParameters, 1>& z,
               Residuals&& residuals,
               Jacobian&& jacobian) {
  using Dual = ceres::Jet<double, Problem::kParameters>;
  std::array<Dual, Problem::kParameters> dualZ;
  for (int i = 0; i < Problem::kParameters; ++i) {
    dualZ[static_cast<std::size_t>(i)] = Dual(z(i), i);
  }
  std::array<Dual, Problem::kResiduals> dualR;
  problem(dualZ.data(), dualR.data());
  for (int i = 0; i < Problem::kResiduals; ++i) {
    residuals(i) = dualR[static_cast<std::size_t>(i)].a;
    jacobian.row(i) = dualR[static_cast<std::size_t>(i)].v.transpose();
  }
}

}  // namespace kx

#endif
