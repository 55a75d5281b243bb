#ifndef KX_FIT_CONTINUATION_H
#define KX_FIT_CONTINUATION_H

#include <array>

#include "fit/BoundedLeastSquares.h"

namespace kx {

/// Where a continuation ended.
template <int kParameters>
struct ContinuationResult {
  Eigen::Matrix<double, kParameters, 1> z;
  double error = -1.0;
  std::int32_t iterations = -1;
};

/// Solves an underdetermined least-squares problem by continuation: minimises
/// |r(z)|^2 + lam |z|^2 for lam = 1e-2, 1e-3, ... 1e-13, each from the solution before.
///
/// - When the targets can be met (error at the end <= 1e-6), the end is the minimum-norm solution:
///   what the targets do not determine stays at the start values (tikhonov1977; for lam -> 0 the
///   penalty selects the solution of smallest |z|).
/// - When they cannot, smaller lam buys next to nothing for ever larger moves in the ill determined
///   directions; the first stage whose error is within 5 % of the best is taken.
template <class Problem>
ContinuationResult<Problem::kParameters> minimumNormFit(
    const Problem& problem,
    const Eigen::Matrix<double, Problem::kParameters, 1>& lower,
    const Eigen::Matrix<double, Problem::kParameters, 1>& upper,
    const ProgressHook& hook) {
  constexpr std::size_t kStages = 12;
  constexpr double kFirstLam = 1e-2;
  constexpr double kExactError = 1e-9;       // rounding of the model; nothing left to gain
  constexpr double kConsistentError = 1e-6;  // far below what any test measures
  constexpr double kWorthTheMove = 1.05;

  using Result = ContinuationResult<Problem::kParameters>;
  BoundedLeastSquares<Problem> leastSquares(problem, lower, upper, hook);
  std::array<Result, kStages> stages;
  std::size_t last = 0;
  std::size_t best = 0;
  Result stage;
  stage.z.setZero();
  double lam = kFirstLam;
  for (std::size_t i = 0; i < kStages; ++i, lam /= 10.0) {
    stage.z = leastSquares.minimise(stage.z, lam);
    stage.error = problem.error(stage.z);
    stages[i] = stage;
    last = i;
    if (stage.error < stages[best].error) best = i;
    if (stage.error < kExactError) break;
  }
  std::size_t chosen = last;
  if (stages[last].error > kConsistentError) {
    chosen = 0;
    while (stages[chosen].error > kWorthTheMove * stages[best].error) ++chosen;
  }
  stages[chosen].iterations = leastSquares.iterations();
  return stages[chosen];
}

}  // namespace kx

#endif
