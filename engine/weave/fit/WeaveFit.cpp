// SPDX-License-Identifier: BSD-3-Clause
#include "weave/fit/WeaveFit.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <vector>

#include "fit/BoundedLeastSquares.h"
#include "fit/ConstituentAssessment.h"
#include "fit/FitStart.h"
#include "fit/ThermalFit.h"
#include "weave/fit/WeaveProblem.h"
#include "weave/model/WeaveCell.h"

namespace kx {

namespace {

struct MechanicalFit {
  Constituents constituents;
  double initialError = 0.0;
  std::int32_t fieldSolves = 0;
};

/// The steps of a mechanical fit: field solve, steps on its surrogate within a trust region.
template <MatrixSymmetry kSymmetry>
class FieldFit {
 public:
  using Space = ConstituentSpace<kSymmetry>;
  using Problem = WeaveProblem<kSymmetry>;
  using Vector = typename Space::Vector;

  FieldFit(ThreadPool& team,
           const WeaveDescription& weave,
           const Properties& target,
           const Constituents& start,
           const ProgressHook& hook)
      : hook_(hook),
        space_(start),
        problem_(space_, target, weave.fiberFraction),
        cell_(weave, team) {
    for (std::size_t i = 0; i < Space::kUnknowns; ++i) {
      const Unknown& unknown = space_.unknowns()[i];
      reach_(static_cast<Eigen::Index>(i)) =
          (unknown.isRatio() ? kRatioReach : 1.0) / unknown.width;
    }
  }

  /// None where the model gives no numbers at the start.
  std::optional<MechanicalFit> run() {
    Point point = solvedAt(Vector::Zero(), kLooseTolerance);
    const double initialError = point.error;
    if (!std::isfinite(initialError)) {
      return std::nullopt;
    }
    const Vector compromise = followed(point);
    const bool consistent = point.error <= kConsistentError;
    return MechanicalFit{
        space_.at((consistent ? point.z : compromise).data()), initialError, solves_};
  }

 private:
  /// A set of constituents whose fields have been solved; the error is no number where they did not
  /// reach their tolerance.
  struct Point {
    Vector z;
    CellSensitivity sensitivity;
    double error = 0.0;
  };

  static constexpr double kCompromiseLam = kWeaveScatter * kWeaveScatter;
  static constexpr double kLastLam = 1e-12;
  static constexpr double kLamFactor = 1e-2;
  // The surrogate is as good for a soft constant as for a hard one: the trust region is one of
  // relative changes, not of widths.
  static constexpr double kFirstRadius = 0.4;  // in logarithms of moduli
  static constexpr double kRatioReach = 0.3;   // of a Poisson's ratio, where a modulus changes by e
  static constexpr double kConsistentError = 1e-4;  // far below what any test measures
  static constexpr double kExactError = 1e-6;       // of the field solves
  static constexpr double kCloseError = 1e-2;
  static constexpr double kLooseTolerance = 1e-3;  // squared in the moduli
  static constexpr double kTightTolerance = 1e-4;
  static constexpr int kMostSolves = 40;

  /// Solves along decreasing lam from `point`, which ends at the last solution; gives the solution
  /// at kCompromiseLam.
  Vector followed(Point& point) {
    minimise(point, kCompromiseLam, kMostSolves / 2);
    Vector compromise = point.z;
    double before = point.error;
    for (double lam = kCompromiseLam * kLamFactor; lam >= kLastLam; lam *= kLamFactor) {
      if (point.error <= kExactError || solves_ >= kMostSolves) {
        break;
      }
      minimise(point, lam, 3);
      // Targets that can be met are approached ever faster.
      if (point.error > kConsistentError && point.error > 0.5 * before) {
        break;
      }
      before = point.error;
    }
    return compromise;
  }

  /// Lowers the merit at one lam until the surrogate promises no gain, with at most `steps` field
  /// solves.
  void minimise(Point& point, const double lam, const int steps) {
    constexpr double kNoGain = 1e-4;
    constexpr double kNoMerit = 1e-14;
    constexpr double kGoodRatio = 0.7;
    constexpr double kPoorRatio = 0.3;
    for (int step = 0; step < steps && solves_ < kMostSolves; ++step) {
      problem_.setSensitivity(point.sensitivity);
      const double current = problem_.merit(point.z, lam);
      const Vector from = point.z;
      const Vector next = surrogateMinimum(from, lam);
      const double promised = current - problem_.merit(next, lam);
      if (!(promised > kNoGain * current + kNoMerit)) {
        return;
      }
      const Point trial = solvedAt(next, tolerance(point));
      problem_.setSensitivity(trial.sensitivity);
      const bool isSolved = std::isfinite(trial.error);
      const double gained = isSolved ? current - problem_.merit(trial.z, lam) : 0.0;
      if (gained > 0.0) {
        point = trial;
      }
      const double length = (next - from).cwiseQuotient(reach_).template lpNorm<Eigen::Infinity>();
      if (gained > kGoodRatio * promised) {
        radius_ *= 2.0;
      } else if (gained < kPoorRatio * promised) {
        // From one side of a valley to the other: what was promised holds on half of the way.
        radius_ = 0.5 * length;
      }
      if (point.error <= kExactError) {
        return;
      }
    }
  }

  Vector surrogateMinimum(const Vector& z, const double lam) const {
    const Vector lower = space_.lower().cwiseMax(z - radius_ * reach_);
    const Vector upper = space_.upper().cwiseMin(z + radius_ * reach_);
    BoundedLeastSquares<Problem> leastSquares(problem_, lower, upper, {});
    return leastSquares.minimise(z, lam);
  }

  static double tolerance(const Point& point) {
    return point.error > kCloseError ? kLooseTolerance : kTightTolerance;
  }

  Point solvedAt(const Vector& z, const double tolerance) {
    const Constituents materials = space_.at(z.data());
    SolveSettings settings;
    settings.tolerance = tolerance;
    const bool isSolved =
        cell_.solveStrains(WeaveConstituents::uniform(materials.fiber, materials.matrix), settings);
    Point point{z, cell_.sensitivity(), std::numeric_limits<double>::quiet_NaN()};
    problem_.setSensitivity(point.sensitivity);
    if (isSolved) {
      point.error = problem_.error(z);
    }
    ++solves_;
    if (hook_ && isSolved) {
      hook_(solves_, point.error);
    }
    return point;
  }

  const ProgressHook& hook_;
  Space space_;
  Problem problem_;
  WeaveCell cell_;
  Vector reach_;  // change of z at a radius of 1
  double radius_ = kFirstRadius;
  std::int32_t solves_ = 0;
};

/// No numbers where a field did not reach its tolerance.
Properties plyOf(WeaveModel& model, const WeaveDescription& weave, const Constituents& materials) {
  const CellResponse response =
      model.response(weave, WeaveConstituents::uniform(materials.fiber, materials.matrix));
  return response.isConverged ? propertiesFromCompliance(response.compliance, response.expansion)
                              : noModel().materials.lamina;
}

// The ply's expansions by Levin's relation, applied to the unit cell and to the tows.
ExpansionModel levinModel(WeaveModel& model,
                          const WeaveDescription& weave,
                          const Constituents& fitted) {
  const auto uniform = WeaveConstituents::uniform(fitted.fiber, fitted.matrix);
  const CellSensitivity sensitivity = model.sensitivity(weave, uniform);
  const Matrix6 compliance =
      sensitivity.stiffnessFor(phasesOf(uniform, weave.fiberFraction)).inverse();
  return [sensitivity, compliance, weave](const Constituents& materials) -> CompositeExpansion {
    const auto cell =
        cellConstituents(weave, WeaveConstituents::uniform(materials.fiber, materials.matrix));
    if (!cell.hasThermalStress) {
      return CompositeExpansion::Constant(std::numeric_limits<double>::quiet_NaN());
    }
    Vector6 beta = Vector6::Zero();
    for (std::size_t r = 0; r < kCellPhases; ++r) {
      beta += sensitivity.strain[r].transpose() * cell.phases[r].beta;
    }
    return (compliance * beta).head<3>();
  };
}

bool hasTarget(const Properties& target) {
  return std::any_of(kPropertyOrder<double>.begin(),
                     kPropertyOrder<double>.begin() + kWeaveWeights.size(),
                     [&](const auto constant) { return isGiven(target.*constant); });
}

std::optional<MechanicalFit> fitElastic(WeaveModel& model,
                                        const WeaveDescription& weave,
                                        const Properties& target,
                                        const FitStart& start,
                                        const ProgressHook& hook) {
  if (!hasTarget(target)) {
    return MechanicalFit{start.constituents, 0.0, 0};
  }
  const auto fit = [&](auto symmetry) {
    return FieldFit<decltype(symmetry)::value>(
               model.team(), weave, target, start.constituents, hook)
        .run();
  };
  using Isotropic = std::integral_constant<MatrixSymmetry, MatrixSymmetry::isotropic>;
  using Transverse = std::integral_constant<MatrixSymmetry, MatrixSymmetry::transverselyIsotropic>;
  return start.symmetry == MatrixSymmetry::isotropic ? fit(Isotropic{}) : fit(Transverse{});
}

CompositeExpansion expansionOf(const Properties& ply) {
  return {ply.a11, ply.a22, ply.a33};
}

/// What was fitted, and the ply that it gives.
FitResult solved(WeaveModel& model,
                 const WeaveDescription& weave,
                 const Properties& target,
                 const MechanicalFit& mechanical,
                 const ThermalFitResult& thermal,
                 const FitOptions& options) {
  const Properties ply = plyOf(model, weave, thermal.constituents);
  const double elasticError = weaveError(ply, target);
  const double thermalError = expansionError(expansionOf(ply), expansionOf(target));
  if (!isAdmissible(ply) || !std::isfinite(elasticError) || !std::isfinite(thermalError)) {
    return noModel();
  }
  const auto solves = mechanical.fieldSolves == 0 ? 0 : mechanical.fieldSolves + 1;
  return {{ply, properties(thermal.constituents.fiber), properties(thermal.constituents.matrix)},
          summaryOf(mechanical.initialError, elasticError, options.maximumMechanicalError, solves),
          summaryOf(thermal.summary.initialError,
                    thermalError,
                    options.maximumThermalError,
                    thermal.summary.iterations)};
}

template <MatrixSymmetry kSymmetry>
std::vector<AssessedConstant> assessElasticOf(const CellSensitivity& sensitivity,
                                              const WeaveDescription& weave,
                                              const Properties& target,
                                              const Constituents& start,
                                              const Constituents& fitted,
                                              const bool isExact) {
  const ConstituentSpace<kSymmetry> space(start);
  WeaveProblem<kSymmetry> problem(space, target, weave.fiberFraction);
  problem.setSensitivity(sensitivity);
  return assessElastic(problem, start, fitted, kWeaveScatter, isExact);
}

FitResult fitted(WeaveModel& model,
                 const WeaveDescription& weave,
                 const FittedMaterials& given,
                 const FitOptions& options) {
  const auto start = admissibleStart(given, options.isotropicMatrix);
  if (!start || !weave.isSensible()) {
    return noModel();
  }
  const Properties& target = given.lamina;
  const auto mechanical = fitElastic(model, weave, target, *start, options.progress);
  if (!mechanical) {
    return noModel();
  }
  const auto thermal = fitExpansions(levinModel(model, weave, mechanical->constituents),
                                     mechanical->constituents,
                                     expansionUnknowns(*start),
                                     expansionOf(target),
                                     options.maximumThermalError);
  return thermal ? solved(model, weave, target, *mechanical, *thermal, options) : noModel();
}

}  // namespace

FitResult fitWeave(WeaveModel& model,
                   const WeaveDescription& weave,
                   const FittedMaterials& given,
                   const FitOptions& options) {
  return reported(fitted(model, weave, given, options), options);
}

std::optional<Assessment> assess(WeaveModel& model,
                                 const WeaveDescription& weave,
                                 const FittedMaterials& given,
                                 const FittedMaterials& fitted,
                                 const FitOptions& options) {
  const auto start = admissibleStart(given, options.isotropicMatrix);
  const auto answer =
      start ? admissibleStart(fitted, start->symmetry == MatrixSymmetry::isotropic) : start;
  if (!answer || !weave.isSensible()) {
    return std::nullopt;
  }
  const Constituents& materials = answer->constituents;
  Assessment assessment;
  assessment.predicted = plyOf(model, weave, start->constituents);
  if (!isFinite(assessment.predicted)) {
    return std::nullopt;
  }
  assessment.target = given.lamina;
  assessment.startMatrix = matrixModuli(properties(start->constituents.matrix));
  assessment.fittedMatrix = matrixModuli(properties(materials.matrix));
  assessment.isExact = weaveError(plyOf(model, weave, materials), given.lamina) <= kMetWithin;
  const auto elastic = start->symmetry == MatrixSymmetry::isotropic
                           ? assessElasticOf<MatrixSymmetry::isotropic>
                           : assessElasticOf<MatrixSymmetry::transverselyIsotropic>;
  const auto uniform = WeaveConstituents::uniform(materials.fiber, materials.matrix);
  assessment.elastic = elastic(model.sensitivity(weave, uniform),
                               weave,
                               given.lamina,
                               start->constituents,
                               materials,
                               assessment.isExact);
  assessment.expansions = assessExpansions(
      levinModel(model, weave, materials), *start, materials, expansionOf(given.lamina));
  return assessment;
}

}  // namespace kx
