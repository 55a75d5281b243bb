#include "fit/UnidirectionalFit.h"

#include <algorithm>
#include <cmath>

#include "fit/Continuation.h"
#include "fit/LaminaProblem.h"
#include "fit/ThermalFit.h"

namespace kx {
namespace {

// Stands for the error of constituents that give no lamina at all.
constexpr double kNoModelError = 1.0;

bool hasTarget(const TransverselyIsotropic& target) {
  return std::any_of(kLaminaTargets.begin(), kLaminaTargets.end(), [&](const TargetWeight& row) {
    return isGiven(constantOf(target, row.constant));
  });
}

struct MechanicalFit {
  Constituents constituents;
  FitSummary summary;
};

template <MatrixSymmetry kSymmetry>
MechanicalFit fitElastic(const double fiberFraction,
                         const TransverselyIsotropic& target,
                         const Constituents& start,
                         const FitOptions& options) {
  const ConstituentSpace<kSymmetry> space(start);
  const LaminaProblem<kSymmetry> problem(space, target, fiberFraction);
  const double initial = problem.error(ConstituentSpace<kSymmetry>::Vector::Zero());
  if (!std::isfinite(initial)) {
    return {start, {Termination::failed, kNoModelError, kNoModelError, 0}};
  }
  const auto fit = minimumNormFit(problem, space.lower(), space.upper(), options.progress);
  const auto termination = fit.error <= options.maximumMechanicalError
                               ? Termination::converged
                               : Termination::bestCompromise;
  return {space.at(fit.z.data()), {termination, initial, fit.error, fit.iterations}};
}

/// Where the constituents' expansions, or all their constants, overflow in the model, those of
/// `given` stand instead.
Properties laminaOf(const Constituents& materials,
                    const double fiberFraction,
                    const Properties& given) {
  const auto lamina =
      properties(homogenise(materials.fiber, materials.matrix, fiberFraction).effective);
  if (isAdmissible(lamina)) {
    return lamina;
  }
  const auto elastic = withExpansionsOf(given, lamina);
  return isAdmissible(elastic) ? elastic : given;
}

bool givesALamina(const Constituents& materials, const double fiberFraction) {
  return fiberFraction > 0.0 && fiberFraction < 1.0 && isAdmissible(materials.fiber) &&
         isAdmissible(materials.matrix);
}

UnidirectionalFitResult unfitted(const UnidirectionalMaterials& given,
                                 const Constituents& start,
                                 const double fiberFraction) {
  const FitSummary failed{Termination::failed, kNoModelError, kNoModelError, 0};
  UnidirectionalFitResult result{given, failed, failed};
  if (givesALamina(start, fiberFraction)) {
    result.materials.lamina = laminaOf(start, fiberFraction, given.lamina);
  }
  return result;
}

}  // namespace

UnidirectionalFitResult fitUnidirectional(const double fiberFraction,
                                          const UnidirectionalMaterials& given,
                                          const FitOptions& options) {
  const auto target = transverselyIsotropic(given.lamina);
  const auto matrix = matrixStart(given.matrix, options.isotropicMatrix);
  const Constituents start{transverselyIsotropic(given.fiber), matrix.constants};
  const bool finite = isFinite(given.lamina) && isFinite(given.fiber) && isFinite(given.matrix);
  if (!finite || !givesALamina(start, fiberFraction) || !hasTarget(target)) {
    return unfitted(given, start, fiberFraction);
  }

  const auto mechanical =
      matrix.symmetry == MatrixSymmetry::isotropic
          ? fitElastic<MatrixSymmetry::isotropic>(fiberFraction, target, start, options)
          : fitElastic<MatrixSymmetry::transverselyIsotropic>(
                fiberFraction, target, start, options);
  if (mechanical.summary.termination == Termination::failed) {
    return unfitted(given, start, fiberFraction);
  }
  const auto expansions = [&](const Constituents& materials) -> CompositeExpansion {
    const auto effective = homogenise(materials.fiber, materials.matrix, fiberFraction).effective;
    return {effective.a11, effective.a22, effective.a22};
  };
  const auto thermal = fitExpansions(expansions,
                                     mechanical.constituents,
                                     matrix.symmetry,
                                     {target.a11, target.a22, 0.0},
                                     options.maximumThermalError);
  const auto& fitted = thermal.constituents;
  return {{laminaOf(fitted, fiberFraction, given.lamina),
           properties(fitted.fiber),
           properties(fitted.matrix)},
          mechanical.summary,
          thermal.summary};
}

}  // namespace kx
