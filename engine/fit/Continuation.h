// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FIT_CONTINUATION_H
#define KX_FIT_CONTINUATION_H

#include "fit/BoundedLeastSquares.h"

namespace kx {

/// Where a continuation ended.
template <int kParameters>
struct ContinuationResult {
  Eigen::Matrix<double, kParameters, 1> z;
  double error = 1.0;
  std::int32_t iterations = 0;
};

/// Scatter of the tests of a unidirectional lamina, relative, over the weight of a target.
inline constexpr double kLaminaScatter = 0.05;

/// Targets count as met below this error, far below what any test measures.
inline constexpr double kConsistentError = 1e-6;

/// The most probable z, where a start value is known to one standard deviation in z and a target to
/// kLaminaScatter over its weight: minimises |r(z)|^2 + lam |z|^2 for lam = kLaminaScatter^2, then
/// for lam / 100, lam / 10000, ..., each from the solution before.
///
/// - When the targets can be met, lam -> 0 gives the one of all exact solutions that is nearest to
///   the start (tikhonov1977, chapter II).
/// - When they cannot, the first lam weighs both kinds of scatter as they are. That is the
///   compromise, and it has the last word unless its error, which weighs the targets otherwise than
///   r does, is above that of the start.
template <class Problem>
ContinuationResult<Problem::kParameters> mostProbableFit(
    const Problem& problem,
    const Eigen::Matrix<double, Problem::kParameters, 1>& lower,
    const Eigen::Matrix<double, Problem::kParameters, 1>& upper,
    const ProgressHook& hook) {
  constexpr int kStages = 7;
  constexpr double kExactError = 1e-9;  // rounding of the model; nothing left to gain

  using Result = ContinuationResult<Problem::kParameters>;
  BoundedLeastSquares<Problem> leastSquares(problem, lower, upper, hook);
  Result start;
  start.z.setZero();
  start.error = problem.error(start.z);
  double lam = kLaminaScatter * kLaminaScatter;
  const auto minimised = [&](const Result& from) {
    Result to;
    to.z = leastSquares.minimise(from.z, lam);
    to.error = problem.error(to.z);
    return to;
  };
  const Result compromise = minimised(start);
  Result exact = compromise;
  for (int stage = 1; stage < kStages && exact.error >= kExactError; ++stage) {
    lam /= 100.0;
    exact = minimised(exact);
  }
  Result chosen = exact.error <= kConsistentError ? exact : compromise;
  if (chosen.error > start.error) {
    chosen = start;
  }
  chosen.iterations = leastSquares.iterations();
  return chosen;
}

}  // namespace kx

#endif
