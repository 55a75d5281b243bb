// SPDX-License-Identifier: BSD-3-Clause
#include "shear/SecantFit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include <ceres/tiny_solver.h>
#include <ceres/tiny_solver_autodiff_function.h>

namespace kx {
namespace {

constexpr double kTolerableStress = 0.02;   // of the peak
constexpr double kLowestThreshold = 1e-6;   // of the peak; b stays above 1 by more than rounding
constexpr double kHighestThreshold = 0.98;  // of the peak
constexpr double kLogReach = 6.0;           // |ln(asymptote/peak - 1)|

using Points = std::vector<ShearPoint>;
enum class Measure { strain, stress };

/// The two unknowns, each mapped from the whole axis onto its range, stress relative to the peak.
template <typename T>
struct Knee {
  T threshold;
  T asymptote;

  explicit Knee(const T* unknowns)
      : threshold(kHighestThreshold * logistic(unknowns[0])),
        asymptote(1.0 + exp(kLogReach * (2.0 * logistic(unknowns[1]) - 1.0))) {}

  static T logistic(const T& x) {
    using std::exp;
    return 1.0 / (1.0 + exp(-x));
  }
  static T exp(const T& x) {
    using std::exp;
    return exp(x);
  }
};

/// The curve in units of its peak, as a least-squares problem in the knee's two unknowns.
struct KneeProblem {
  const Points& points;
  double slope;
  Measure measure;

  // the solver asks by this name. NOLINTNEXTLINE(readability-identifier-naming)
  [[nodiscard]] int NumResiduals() const { return static_cast<int>(points.size()); }

  template <typename T>
  bool operator()(const T* unknowns, T* residuals) const {
    const Knee<T> knee(unknowns);
    const T span = knee.asymptote - knee.threshold;
    for (std::size_t i = 0; i < points.size(); ++i) {
      residuals[i] = measure == Measure::strain ? strainResidual(points[i], knee, span)
                                                : stressResidual(points[i], knee, span);
    }
    return true;
  }

 private:
  template <typename T>
  [[nodiscard]] T strainResidual(const ShearPoint& point,
                                 const Knee<T>& knee,
                                 const T& span) const {
    const double straight = point.stress / slope;
    if (point.stress <= knee.threshold) {
      return T(straight - point.strain);
    }
    return straight * span / (knee.asymptote - point.stress) - point.strain;
  }

  template <typename T>
  [[nodiscard]] T stressResidual(const ShearPoint& point,
                                 const Knee<T>& knee,
                                 const T& span) const {
    const double straight = slope * point.strain;
    if (straight <= knee.threshold) {
      return T(straight - point.stress);
    }
    return straight * knee.asymptote / (span + straight) - point.stress;
  }
};

using Unknowns = std::array<double, 2>;
struct Start {
  double cost = std::numeric_limits<double>::infinity();
  Unknowns unknowns{};
};

double logit(const double fraction) noexcept {
  return std::log(fraction / (1.0 - fraction));
}

double costOf(const KneeProblem& problem,
              const Unknowns& unknowns,
              std::vector<double>& residuals) {
  problem(unknowns.data(), residuals.data());
  double sum = 0.0;
  for (const double residual : residuals) {
    sum += residual * residual;
  }
  return std::isfinite(sum) ? sum : std::numeric_limits<double>::infinity();
}

/// The best cells of a coarse grid over both unknowns: the knee makes valleys with several ends.
std::array<Start, 3> bestCells(const KneeProblem& problem, std::vector<double>& residuals) {
  constexpr int kThresholds = 16;
  constexpr int kAsymptotes = 12;
  std::array<Start, 3> best;
  for (int i = 0; i < kThresholds; ++i) {
    for (int j = 0; j < kAsymptotes; ++j) {
      Start start;
      start.unknowns = {logit((i + 0.5) / kThresholds), logit((j + 0.5) / kAsymptotes)};
      start.cost = costOf(problem, start.unknowns, residuals);
      const auto place = std::find_if(best.begin(), best.end(), [&start](const Start& other) {
        return start.cost < other.cost;
      });
      if (place != best.end()) {
        std::move_backward(place, best.end() - 1, best.end());
        *place = start;
      }
    }
  }
  return best;
}

Start refined(const KneeProblem& problem, const Start& start, std::vector<double>& residuals) {
  using Function = ceres::TinySolverAutoDiffFunction<KneeProblem, Eigen::Dynamic, 2>;
  const Function function(problem);
  ceres::TinySolver<Function> solver;
  solver.options.max_num_iterations = 100;
  solver.options.gradient_tolerance = 1e-14;
  solver.options.function_tolerance = 1e-20;  // on the cost itself, whose scale is 1
  solver.options.parameter_tolerance = 1e-11;
  solver.options.cost_threshold = 1e-24;
  Eigen::Vector2d unknowns(start.unknowns[0], start.unknowns[1]);
  solver.Solve(function, &unknowns);
  Start result;
  result.unknowns = {unknowns[0], unknowns[1]};
  result.cost = costOf(problem, result.unknowns, residuals);
  return result.cost < start.cost ? result : start;
}

SecantLaw fittedLaw(const Points& points, const double slope, Measure measure) {
  const KneeProblem problem{points, slope, measure};
  std::vector<double> residuals(points.size());
  Start best;
  for (const auto& cell : bestCells(problem, residuals)) {
    const auto candidate = refined(problem, cell, residuals);
    if (candidate.cost < best.cost) {
      best = candidate;
    }
  }
  const Knee<double> knee(best.unknowns.data());
  const double threshold = std::max(knee.threshold, kLowestThreshold);
  const double span = knee.asymptote - threshold;
  return {slope, -1.0 / span, knee.asymptote / span, threshold};
}

}  // namespace

double largestStressDeviation(const SecantLaw& law, const Points& points) noexcept {
  double worst = 0.0;
  for (const auto& point : points) {
    worst = std::max(worst, std::abs(law.stressAt(point.strain) - point.stress));
  }
  return worst;
}

SecantLaw fitSecantLaw(const Points& points, const double slope) {
  const auto byStrain = fittedLaw(points, slope, Measure::strain);
  if (largestStressDeviation(byStrain, points) <= kTolerableStress) {
    return byStrain;
  }
  const auto byStress = fittedLaw(points, slope, Measure::stress);
  return largestStressDeviation(byStress, points) < largestStressDeviation(byStrain, points)
             ? byStress
             : byStrain;
}

}  // namespace kx
