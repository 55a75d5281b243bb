#include "weave/fit/WeaveFit.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "fit/BoundedLeastSquares.h"
#include "fit/ThermalFit.h"
#include "weave/cell/CellSolver.h"
#include "weave/fit/WeaveProblem.h"

namespace kx {

namespace {

// Stands for the error of constituents that give no ply at all.
constexpr double kNoModelError = 1.0;

struct MechanicalFit {
  Constituents constituents;
  double initialError = kNoModelError;
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
      : team_(team),
        weave_(weave),
        hook_(hook),
        space_(start),
        problem_(space_, target, weave.fiberFraction),
        cell_(weave.unitCell()),
        solver_(cell_, team) {}

  MechanicalFit run() {
    Point point = solvedAt(Vector::Zero(), kLooseTolerance);
    MechanicalFit fit;
    fit.initialError = point.error;
    if (!std::isfinite(fit.initialError)) {
      return fit;
    }
    const Vector balanced = followed(point);
    const bool consistent = point.error <= kConsistentError;
    fit.constituents = space_.at((consistent ? point.z : balanced).data());
    fit.fieldSolves = solves_;
    return fit;
  }

 private:
  /// A set of constituents whose fields have been solved.
  struct Point {
    Vector z;
    CellSensitivity sensitivity;
    double error = 0.0;
  };

  static constexpr double kBalancedLam = 1e-2;  // (5 % of a target / 50 % of a start value)^2
  static constexpr double kLastLam = 1e-12;
  static constexpr double kLamFactor = 1e-2;
  static constexpr double kFirstRadius = 0.4;
  static constexpr double kConsistentError = 1e-4;  // far below what any test measures
  static constexpr double kExactError = 1e-6;       // of the field solves
  static constexpr double kCloseError = 1e-2;
  static constexpr double kLooseTolerance = 1e-3;  // squared in the moduli
  static constexpr double kTightTolerance = 1e-4;
  static constexpr int kMostSolves = 40;

  /// Solves along decreasing lam from `point`, which ends at the last solution; gives the solution
  /// at kBalancedLam.
  Vector followed(Point& point) {
    minimise(point, kBalancedLam, kMostSolves / 2);
    Vector balanced = point.z;
    double before = point.error;
    for (double lam = kBalancedLam * kLamFactor; lam >= kLastLam; lam *= kLamFactor) {
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
    return balanced;
  }

  /// Lowers the merit at one lam until the surrogate promises no gain, with at most `steps` field
  /// solves.
  void minimise(Point& point, const double lam, const int steps) {
    constexpr double kNoGain = 1e-4;
    constexpr double kNoMerit = 1e-14;
    for (int step = 0; step < steps && solves_ < kMostSolves; ++step) {
      problem_.setSensitivity(point.sensitivity);
      const double current = problem_.merit(point.z, lam);
      const Vector next = surrogateMinimum(point.z, lam);
      const double promised = current - problem_.merit(next, lam);
      if (!(promised > kNoGain * current + kNoMerit)) {
        return;
      }
      const Point trial = solvedAt(next, tolerance(point));
      problem_.setSensitivity(trial.sensitivity);
      const double gained = current - problem_.merit(trial.z, lam);
      if (gained > 0.0) {
        point = trial;
      }
      if (gained > 0.7 * promised) {
        radius_ *= 2.0;
      } else if (gained <= 0.0) {
        radius_ *= 0.3;
      }
      if (point.error <= kExactError) {
        return;
      }
    }
  }

  Vector surrogateMinimum(const Vector& z, const double lam) const {
    const Vector lower = space_.lower().cwiseMax((z.array() - radius_).matrix());
    const Vector upper = space_.upper().cwiseMin((z.array() + radius_).matrix());
    BoundedLeastSquares<Problem> leastSquares(problem_, lower, upper, {});
    return leastSquares.minimise(z, lam);
  }

  static double tolerance(const Point& point) {
    return point.error > kCloseError ? kLooseTolerance : kTightTolerance;
  }

  Point solvedAt(const Vector& z, const double tolerance) {
    const Constituents materials = space_.at(z.data());
    const CellMaterials voxels(
        cell_,
        cellConstituents(weave_, WeaveConstituents::uniform(materials.fiber, materials.matrix)));
    SolveSettings settings;
    settings.tolerance = tolerance;
    solver_.solve(voxels, ThermalCase::without, settings, fields_);
    Point point{z, cellSensitivity(voxels, fields_, team_), 0.0};
    problem_.setSensitivity(point.sensitivity);
    point.error = problem_.error(z);
    ++solves_;
    if (hook_) {
      hook_(solves_, point.error);
    }
    return point;
  }

  ThreadPool& team_;
  const WeaveDescription& weave_;
  const ProgressHook& hook_;
  Space space_;
  Problem problem_;
  UnitCell cell_;
  CellSolver solver_;
  CellFields fields_;
  double radius_ = kFirstRadius;
  std::int32_t solves_ = 0;
};

Properties plyOf(WeaveModel& model, const WeaveDescription& weave, const Constituents& materials) {
  const CellResponse response =
      model.response(weave, WeaveConstituents::uniform(materials.fiber, materials.matrix));
  return propertiesFromCompliance(response.compliance, response.expansion);
}

// Root mean square of the relative deviations of the expansions that are given.
double expansionError(const Properties& ply, const Properties& target) {
  double sum = 0.0;
  int count = 0;
  for (const auto constant : {&Properties::a11, &Properties::a22, &Properties::a33}) {
    if (target.*constant == 0.0) {
      continue;
    }
    const double relative = ply.*constant / (target.*constant) - 1.0;
    sum += relative * relative;
    ++count;
  }
  return count == 0 ? 0.0 : std::sqrt(sum / count);
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

WeaveFitResult unfitted(WeaveModel& model,
                        const WeaveDescription& weave,
                        const WeaveMaterials& given,
                        const Constituents& start) {
  const FitSummary failed{Termination::failed, kNoModelError, kNoModelError, 0};
  WeaveFitResult result{given, failed, failed};
  const bool givesAPly =
      weave.isSensible() && isAdmissible(start.fiber) && isAdmissible(start.matrix);
  if (givesAPly) {
    const Properties ply = plyOf(model, weave, start);
    if (isAdmissible(ply)) {
      result.materials.lamina = ply;
    }
  }
  return result;
}

FitSummary summary(const double initial,
                   const double final,
                   const double maximum,
                   const std::int32_t iterations) {
  const auto termination = final <= maximum ? Termination::converged : Termination::bestCompromise;
  return {termination, initial, final, iterations};
}

/// What was fitted, and the ply that it gives; `given` where that is beyond the range of numbers.
WeaveFitResult fitted(WeaveModel& model,
                      const WeaveDescription& weave,
                      const WeaveMaterials& given,
                      const Constituents& start,
                      const MechanicalFit& mechanical,
                      const ThermalFitResult& thermal,
                      const FitOptions& options) {
  Properties ply = plyOf(model, weave, thermal.constituents);
  const double thermalError =
      isAdmissible(ply) ? expansionError(ply, given.lamina) : thermal.summary.finalError;
  if (!isAdmissible(ply)) {
    ply = withExpansionsOf(given.lamina, ply);
  }
  const double elasticError = weaveError(ply, given.lamina);
  if (!isAdmissible(ply) || !std::isfinite(elasticError)) {
    return unfitted(model, weave, given, start);
  }
  return {{ply, properties(thermal.constituents.fiber), properties(thermal.constituents.matrix)},
          summary(mechanical.initialError,
                  elasticError,
                  options.maximumMechanicalError,
                  mechanical.fieldSolves),
          summary(thermal.summary.initialError,
                  std::isfinite(thermalError) ? thermalError : thermal.summary.finalError,
                  options.maximumThermalError,
                  thermal.summary.iterations)};
}

}  // namespace

WeaveFitResult fitWeave(WeaveModel& model,
                        const WeaveDescription& weave,
                        const WeaveMaterials& given,
                        const FitOptions& options) {
  const auto matrix = matrixStart(given.matrix, options.isotropicMatrix);
  const Constituents start{transverselyIsotropic(given.fiber), matrix.constants};
  const bool finite = isFinite(given.lamina) && isFinite(given.fiber) && isFinite(given.matrix);
  if (!finite || !weave.isSensible() || !isAdmissible(start.fiber) || !isAdmissible(start.matrix) ||
      !hasTarget(given.lamina)) {
    return unfitted(model, weave, given, start);
  }
  const Properties& target = given.lamina;
  const auto fit = [&](auto symmetry) {
    return FieldFit<decltype(symmetry)::value>(model.team(), weave, target, start, options.progress)
        .run();
  };
  using Isotropic = std::integral_constant<MatrixSymmetry, MatrixSymmetry::isotropic>;
  using Transverse = std::integral_constant<MatrixSymmetry, MatrixSymmetry::transverselyIsotropic>;
  const MechanicalFit mechanical =
      matrix.symmetry == MatrixSymmetry::isotropic ? fit(Isotropic{}) : fit(Transverse{});
  if (!std::isfinite(mechanical.initialError)) {
    return unfitted(model, weave, given, start);
  }
  const ThermalFitResult thermal = fitExpansions(levinModel(model, weave, mechanical.constituents),
                                                 mechanical.constituents,
                                                 matrix.symmetry,
                                                 {target.a11, target.a22, target.a33},
                                                 options.maximumThermalError);
  return fitted(model, weave, given, start, mechanical, thermal, options);
}

}  // namespace kx
