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

/// Whether going from one point to the next, farther from the start, lowers the weighted residuals
/// by what the longer move is worth.
template <class Problem>
bool isWorthTheMove(const Problem& problem,
                    const Eigen::Matrix<double, Problem::kParameters, 1>& from,
                    const Eigen::Matrix<double, Problem::kParameters, 1>& to) {
  constexpr double kTargetScatter = 0.05;
  constexpr double kStartScatter = 0.5;
  const auto misfit = [&](const auto& z) {
    Eigen::Matrix<double, Problem::kResiduals, 1> r;
    r.setZero();
    problem(z.data(), r.data());
    return r.norm();
  };
  const double gain = misfit(from) - misfit(to);
  const double move = to.norm() - from.norm();
  return gain > 0.0 && gain >= kTargetScatter / kStartScatter * move;
}

/// Solves an underdetermined least-squares problem by continuation: minimises
/// |r(z)|^2 + lam |z|^2 for lam = 1e-2, 1e-3, ... 1e-13, each from the solution before.
///
/// - When the targets can be met (error at the end <= 1e-6), the end is the minimum-norm solution:
///   what the targets do not determine stays at the start values (tikhonov1977; for lam -> 0 the
///   penalty selects the solution of smallest |z|).
/// - When they cannot, smaller lam buys ever less for ever larger moves in the ill determined
///   directions. The continuation is followed for as long as a stage lowers |r| by at least a tenth
///   of what it adds to |z|: where targets are measured to 5 % and start values known to 50 %, that
///   is a standard deviation for a standard deviation.
/// - |r| may weigh otherwise than the error does, so that the one falls and the other rises. A
///   stage whose error is above that of z = 0 gives way to the last one before it that is not, or
///   to z = 0.
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

  using Result = ContinuationResult<Problem::kParameters>;
  BoundedLeastSquares<Problem> leastSquares(problem, lower, upper, hook);
  std::array<Result, kStages> stages;
  std::size_t last = 0;
  Result stage;
  stage.z.setZero();
  Result start = stage;
  start.error = problem.error(start.z);
  double lam = kFirstLam;
  for (std::size_t i = 0; i < kStages; ++i, lam /= 10.0) {
    stage.z = leastSquares.minimise(stage.z, lam);
    stage.error = problem.error(stage.z);
    stages[i] = stage;
    last = i;
    if (stage.error < kExactError) {
      break;
    }
  }
  std::size_t chosen = last;
  if (stages[last].error > kConsistentError) {
    chosen = 0;
    while (chosen < last && isWorthTheMove(problem, stages[chosen].z, stages[chosen + 1].z)) {
      ++chosen;
    }
  }
  while (chosen > 0 && stages[chosen].error > start.error) {
    --chosen;
  }
  if (stages[chosen].error > start.error) {
    stages[chosen] = start;
  }
  stages[chosen].iterations = leastSquares.iterations();
  return stages[chosen];
}

}  // namespace kx

#endif
