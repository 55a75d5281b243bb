// SPDX-License-Identifier: BSD-3-Clause
#include "fatigue/DirectionFit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <tuple>
#include <utility>

#include <ceres/tiny_solver.h>
#include <ceres/tiny_solver_autodiff_function.h>
#include <Eigen/Dense>

namespace kx {
namespace {

struct Prior {
  double value;
  double deviation;
};
constexpr Prior kReducedStrength{18.0, 8.0};
constexpr Prior kAmplitudeFactor{0.7, 0.5};
constexpr double kStrengthDeviation = 0.05;
constexpr double kUnknownStrengthDeviation = 0.5;
constexpr double kFixed = 1e-6;
constexpr std::size_t kFewTests = 3;
constexpr std::size_t kMostTests = 256;
constexpr int kPriors = 3;

constexpr double kTolerableScatter = 1.03;
constexpr int kRelaxations = 4;
constexpr double kRelaxation = 2.0;
constexpr double kWorthwhile = 0.998;  // of the deviation before

using Unknowns = Eigen::Vector3d;  // e, ln x, k
enum Unknown { strengthError, lnReducedStrength, amplitudeFactor };

double lnTime(const LifeTest& test) {
  return std::log(test.life) - std::log(test.frequency);
}

/// The tests, and the weights of everything.
struct Problem {
  std::vector<LifeTest> tests;  // peaks over the strength
  double lnAttempts = 0.0;      // ln nu0
  double lnRamp = 0.0;          // ln(nu0 t_ramp)
  double scatter = 1.0;
  double strengthDeviation = kStrengthDeviation;
  Prior amplitude = kAmplitudeFactor;
  double relaxation = 1.0;

  // the solver asks by this name. NOLINTNEXTLINE(readability-identifier-naming)
  [[nodiscard]] int NumResiduals() const { return static_cast<int>(tests.size()) + kPriors; }

  template <typename T>
  bool operator()(const T* unknowns, T* residuals) const {
    using std::exp;
    const T x = exp(unknowns[lnReducedStrength]);
    const T k = unknowns[amplitudeFactor];
    const T energy = lnRamp + x * (1.0 + unknowns[strengthError]);
    T* residual = residuals;
    for (const auto& test : tests) {
      const T life = lnReducedLife(energy, T(x * test.peak), test.ratio, k);
      *residual++ = (life - (lnTime(test) + lnAttempts)) / scatter;
    }
    *residual++ = unknowns[strengthError] / (strengthDeviation * relaxation);
    *residual++ = (x - kReducedStrength.value) / (kReducedStrength.deviation * relaxation);
    *residual++ = (k - amplitude.value) / (amplitude.deviation * relaxation);
    return true;
  }
};

using Function = ceres::TinySolverAutoDiffFunction<Problem, Eigen::Dynamic, 3>;

bool isPositive(const double value) noexcept {
  return std::isfinite(value) && value > 0.0;
}

/// Root mean square of ln(predicted/measured).
double deviationOf(const Problem& problem, const Unknowns& unknowns) {
  if (problem.tests.empty()) {
    return 0.0;
  }
  std::vector<double> residuals(problem.tests.size() + kPriors);
  problem(unknowns.data(), residuals.data());
  double sum = 0.0;
  for (std::size_t i = 0; i < problem.tests.size(); ++i) {
    sum += residuals[i] * residuals[i];
  }
  return problem.scatter * std::sqrt(sum / static_cast<double>(problem.tests.size()));
}

/// Sum of the squared deviations of a straight line through (stress, ln time).
double lineResidual(const std::vector<LifeTest>& tests) {
  const auto count = static_cast<double>(tests.size());
  double meanPeak = 0.0;
  double meanLife = 0.0;
  for (const auto& test : tests) {
    meanPeak += test.peak / count;
    meanLife += lnTime(test) / count;
  }
  double peaks = 0.0;
  double both = 0.0;
  double lives = 0.0;
  for (const auto& test : tests) {
    const double peak = test.peak - meanPeak;
    const double life = lnTime(test) - meanLife;
    peaks += peak * peak;
    both += peak * life;
    lives += life * life;
  }
  return std::max(0.0, peaks > 0.0 ? lives - both * both / peaks : lives);
}

/// An even selection over the tests' stresses, whatever the order of the records.
std::vector<LifeTest> thinned(std::vector<LifeTest> tests) {
  const std::size_t count = tests.size();
  if (count <= kMostTests) {
    return tests;
  }
  std::sort(tests.begin(), tests.end(), [](const LifeTest& a, const LifeTest& b) {
    return std::tuple(a.peak, a.ratio, lnTime(a)) < std::tuple(b.peak, b.ratio, lnTime(b));
  });
  for (std::size_t i = 0; i < kMostTests; ++i) {
    tests[i] = tests[i * (count - 1) / (kMostTests - 1)];
  }
  tests.resize(kMostTests);
  return tests;
}

/// Those that are numbers, with peaks over the strength.
std::vector<LifeTest> usableTests(const DirectionData& data, const double strength) {
  std::vector<LifeTest> tests;
  tests.reserve(data.tests.size());
  for (LifeTest test : data.tests) {
    test.peak /= strength;
    if (isPositive(test.peak) && std::isfinite(lnTime(test)) && std::abs(test.ratio) <= 1.0) {
      tests.push_back(test);
    }
  }
  return thinned(std::move(tests));
}

int minimise(const Problem& problem, Unknowns& unknowns) {
  const Function function(problem);
  ceres::TinySolver<Function> solver;
  solver.options.max_num_iterations = 60;
  solver.options.gradient_tolerance = 1e-9;
  solver.options.function_tolerance = 1e-10;
  solver.options.parameter_tolerance = 1e-9;
  Unknowns x = unknowns;
  const auto& summary = solver.Solve(function, &x);
  if (x.allFinite() && std::isfinite(summary.final_cost)) {
    unknowns = x;
  }
  return std::max(0, summary.iterations);
}

/// A larger amplitude cannot lengthen a life: k is held at 0 where the tests would have it below.
int solve(Problem& problem, Unknowns& unknowns) {
  int iterations = minimise(problem, unknowns);
  if (unknowns[amplitudeFactor] < 0.0) {
    problem.amplitude = {0.0, kFixed};
    iterations += minimise(problem, unknowns);
    unknowns[amplitudeFactor] = 0.0;
  }
  return iterations;
}

/// The six constants from the unknowns; T carries derivatives for the standard errors.
template <typename T>
std::array<T, 3> fittedConstants(const T* unknowns,
                                 const Problem& problem,
                                 const double thermal,
                                 const double matrixStrength) {
  using std::exp;
  const T x = exp(unknowns[lnReducedStrength]);
  return {thermal * (problem.lnRamp + x * (1.0 + unknowns[strengthError])),
          x * (thermal / matrixStrength),
          unknowns[amplitudeFactor]};
}

BondConstants tied(const double energy,
                   const double activation,
                   const double factor,
                   const double loadTransfer) {
  return {energy, energy, activation, activation, loadTransfer, factor};
}

/// Linearised: the covariance of the unknowns is the inverse of J^T J, with the priors as stated.
BondConstants standardErrors(Problem problem,
                             const Unknowns& unknowns,
                             const double thermal,
                             const double matrixStrength) {
  using Jet = ceres::Jet<double, 3>;
  problem.relaxation = 1.0;
  const Function function(problem);
  Eigen::VectorXd residuals(problem.NumResiduals());
  Eigen::Matrix<double, Eigen::Dynamic, 3> jacobian(problem.NumResiduals(), 3);
  function(unknowns.data(), residuals.data(), jacobian.data());
  const Eigen::Matrix3d covariance = (jacobian.transpose() * jacobian).inverse();
  const std::array<Jet, 3> jets{Jet(unknowns[0], 0), Jet(unknowns[1], 1), Jet(unknowns[2], 2)};
  const auto constants = fittedConstants(jets.data(), problem, thermal, matrixStrength);
  std::array<double, 3> errors{};
  for (std::size_t i = 0; i < errors.size(); ++i) {
    const double variance = constants[i].v.dot(covariance * constants[i].v);
    errors[i] = std::isfinite(variance) ? std::sqrt(std::max(0.0, variance)) : 0.0;
  }
  return tied(errors[0], errors[1], errors[2], 0.0);
}

double referenceStrength(const DirectionData& data) noexcept {
  double largest = 0.0;
  for (const auto& test : data.tests) {
    largest = std::isfinite(test.peak) ? std::max(largest, test.peak) : largest;
  }
  return isPositive(data.strength) ? data.strength : largest;
}

Problem problemOf(const DirectionData& data, const double strength, const double temperature) {
  const double nu0 = attemptFrequency(temperature);
  Problem problem;
  problem.tests = usableTests(data, strength);
  problem.lnAttempts = std::log(nu0);
  problem.lnRamp = std::log(nu0 * kRampTime);
  if (!isPositive(data.strength)) {
    problem.strengthDeviation = kUnknownStrengthDeviation;
  }
  if (problem.tests.size() < kFewTests) {
    problem.amplitude.deviation = kFixed;
  } else {
    const auto count = static_cast<double>(problem.tests.size());
    problem.scatter = std::min(1.0, std::sqrt((lineResidual(problem.tests) + 1.0) / (count - 1.0)));
  }
  return problem;
}

bool isFinite(const DirectionFit& fit) noexcept {
  const auto sum = [](const BondConstants& c) {
    return std::abs(c.breakingEnergy) + std::abs(c.breakingActivation) +
           std::abs(c.amplitudeFactor);
  };
  return std::isfinite(sum(fit.constants) + sum(fit.standardErrors) + fit.initialError +
                       fit.finalError);
}

/// Loosens the priors while they hold the tests back; returns the iterations spent.
int relax(Problem& problem, Unknowns& unknowns) {
  const auto count = problem.tests.size();
  if (count <= kFewTests) {
    return 0;
  }
  const double line = std::sqrt(lineResidual(problem.tests) / static_cast<double>(count));
  double deviation = deviationOf(problem, unknowns);
  int iterations = 0;
  for (int step = 0; step < kRelaxations && deviation > kTolerableScatter * line; ++step) {
    Problem looser = problem;
    looser.relaxation *= kRelaxation;
    Unknowns candidate = unknowns;
    iterations += solve(looser, candidate);
    const double better = deviationOf(looser, candidate);
    if (!(better < kWorthwhile * deviation)) {
      break;
    }
    problem = looser;
    unknowns = candidate;
    deviation = better;
  }
  return iterations;
}

}  // namespace

DirectionFit fitDirection(const DirectionData& data, const double temperature) {
  DirectionFit fit;
  const double strength = referenceStrength(data);
  const double matrixStrength = data.concentration * strength;
  if (!isPositive(temperature) || !isPositive(strength) || !isPositive(matrixStrength)) {
    return fit;
  }
  Problem problem = problemOf(data, strength, temperature);
  Unknowns unknowns(0.0, std::log(kReducedStrength.value), kAmplitudeFactor.value);
  const double initial = deviationOf(problem, unknowns);
  fit.tests = problem.tests.size();
  fit.iterations = solve(problem, unknowns) + relax(problem, unknowns);
  const double thermal = kGasConstant * temperature;
  const auto constants = fittedConstants(unknowns.data(), problem, thermal, matrixStrength);
  fit.constants = tied(constants[0], constants[1], constants[2], 1.0);
  fit.standardErrors = standardErrors(problem, unknowns, thermal, matrixStrength);
  fit.initialError = initial / std::log(10.0);
  fit.finalError = deviationOf(problem, unknowns) / std::log(10.0);
  return isFinite(fit) && fit.isFitted() ? fit : DirectionFit{};
}

}  // namespace kx
