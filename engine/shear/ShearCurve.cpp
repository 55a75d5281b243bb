#include "shear/ShearCurve.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include <ceres/tiny_solver.h>
#include <ceres/tiny_solver_autodiff_function.h>

namespace kx {
namespace {

constexpr double kReached = 0.98;           // of the strength
constexpr double kStraight = 0.98;          // secant modulus over G0 of a linear curve
constexpr double kInitialPart = 0.25;       // of the strength: where G0 is measured
constexpr double kTolerableStress = 0.02;   // of the peak
constexpr double kHighestThreshold = 0.98;  // of the peak
constexpr double kLogReach = 6.0;           // |ln(asymptote/peak - 1)|
constexpr std::size_t kMostPoints = 256;

using Points = std::vector<ShearPoint>;
enum class Measure { strain, stress };

bool isUsable(const ShearPoint& point) noexcept {
  return std::isfinite(point.stress) && std::isfinite(point.strain) && point.stress > 0.0 &&
         point.strain > 0.0;
}

/// A digitised curve of a testing machine has more points than the law has wiggles.
Points thinned(const Points& points) {
  if (points.size() <= kMostPoints) {
    return points;
  }
  Points kept;
  kept.reserve(kMostPoints);
  for (std::size_t i = 0; i < kMostPoints; ++i) {
    kept.push_back(points[i * (points.size() - 1) / (kMostPoints - 1)]);
  }
  return kept;
}

bool isLowerStress(const ShearPoint& a, const ShearPoint& b) noexcept {
  return a.stress < b.stress;
}

/// Magnitudes sorted by strain, up to the first point that reaches the strength, or to the peak.
Points rising(const Points& measured, double strength) {
  Points points;
  points.reserve(measured.size());
  for (const auto& point : measured) {
    const ShearPoint magnitude{std::abs(point.stress), std::abs(point.strain)};
    if (isUsable(magnitude)) {
      points.push_back(magnitude);
    }
  }
  std::sort(points.begin(), points.end(), [](const ShearPoint& a, const ShearPoint& b) {
    return a.strain < b.strain || (a.strain == b.strain && a.stress < b.stress);
  });
  auto last = std::find_if(points.begin(), points.end(), [strength](const ShearPoint& point) {
    return point.stress >= strength;
  });
  if (last == points.end()) {
    last = std::max_element(points.begin(), points.end(), isLowerStress);
  }
  if (last != points.end()) {
    points.erase(last + 1, points.end());
  }
  return thinned(points);
}

/// Slope through the origin; the points are relative to the peak.
double initialSlope(const Points& points, double limit) noexcept {
  double work = 0.0;
  double square = 0.0;
  for (std::size_t i = 0; i < points.size() && (i < 2 || points[i].stress <= limit); ++i) {
    work += points[i].stress * points[i].strain;
    square += points[i].strain * points[i].strain;
  }
  return work / square;
}

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

double logit(double fraction) noexcept {
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

SecantLaw fittedLaw(const Points& points, double slope, Measure measure) {
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
  const double span = knee.asymptote - knee.threshold;
  return {slope, -1.0 / span, knee.asymptote / span, knee.threshold};
}

double worstStress(const SecantLaw& law, const Points& points) noexcept {
  double worst = 0.0;
  for (const auto& point : points) {
    worst = std::max(worst, std::abs(law.stressAt(point.strain) - point.stress));
  }
  return worst;
}

SecantLaw closestLaw(const Points& points, double slope) {
  const auto byStrain = fittedLaw(points, slope, Measure::strain);
  if (worstStress(byStrain, points) <= kTolerableStress) {
    return byStrain;
  }
  const auto byStress = fittedLaw(points, slope, Measure::stress);
  return worstStress(byStress, points) < worstStress(byStrain, points) ? byStress : byStrain;
}

bool isLinear(const Points& points, double slope) noexcept {
  return points.size() < 3 || std::all_of(points.begin(), points.end(), [slope](const auto& point) {
           return point.stress > kStraight * slope * point.strain;
         });
}

}  // namespace

double SecantLaw::degradation(double stress) const noexcept {
  return stress <= threshold ? 1.0 : std::max(0.0, m * stress + b);
}

double SecantLaw::strainAt(double stress) const noexcept {
  return stress / (initialModulus * degradation(stress));
}

double SecantLaw::stressAt(double strain) const noexcept {
  const double straight = initialModulus * strain;
  return straight <= threshold ? straight : straight * b / (1.0 - straight * m);
}

ShearReduction reduceShearCurve(const std::vector<ShearPoint>& measured, double strength) {
  const bool isStrengthGiven = std::isfinite(strength) && strength > 0.0;
  Points points = rising(measured, isStrengthGiven ? strength : HUGE_VAL);
  ShearReduction result;
  if (points.empty()) {
    return result;
  }
  const double peak = std::max_element(points.begin(), points.end(), isLowerStress)->stress;
  const double reference = isStrengthGiven ? strength : peak;
  if (peak < kReached * reference) {
    return result;
  }
  const double largestStrain = points.back().strain;
  for (auto& point : points) {
    point.stress /= peak;
    point.strain /= largestStrain;
  }
  const double slope = initialSlope(points, kInitialPart * reference / peak);
  result.verdict = CurveVerdict::linear;
  if (!std::isfinite(slope) || slope <= 0.0 || isLinear(points, slope)) {
    return result;
  }
  const auto law = closestLaw(points, slope);
  result.verdict = CurveVerdict::reduced;
  result.law = {
      law.initialModulus / largestStrain * peak, law.m / peak, law.b, law.threshold * peak};
  result.lowestDegradation = law.degradation(points.back().stress);
  result.stressDeviation = worstStress(law, points) * peak;
  return result;
}

}  // namespace kx
