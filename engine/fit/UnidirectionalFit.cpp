// SPDX-License-Identifier: BSD-3-Clause
#include "fit/UnidirectionalFit.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "fit/ConstituentAssessment.h"
#include "fit/Continuation.h"
#include "fit/LaminaProblem.h"
#include "fit/ThermalFit.h"

namespace kx {
namespace {

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
std::optional<MechanicalFit> fitElastic(const double fiberFraction,
                                        const TransverselyIsotropic& target,
                                        const Constituents& start,
                                        const FitOptions& options) {
  const ConstituentSpace<kSymmetry> space(start);
  const LaminaProblem<kSymmetry> problem(space, target, fiberFraction);
  const double initial = problem.error(ConstituentSpace<kSymmetry>::Vector::Zero());
  if (!std::isfinite(initial)) {
    return std::nullopt;
  }
  const double allowed = options.maximumMechanicalError;
  if (!hasTarget(target)) {
    return MechanicalFit{start, summaryOf(initial, initial, allowed, 0)};
  }
  const auto fit = mostProbableFit(problem, space.lower(), space.upper(), options.progress);
  return MechanicalFit{space.at(fit.z.data()),
                       summaryOf(initial, fit.error, allowed, fit.iterations)};
}

TransverselyIsotropic laminaOf(const Constituents& materials, const double fiberFraction) {
  return homogenise(materials.fiber, materials.matrix, fiberFraction).effective;
}

ExpansionModel expansionModel(const double fiberFraction) {
  return [fiberFraction](const Constituents& materials) -> CompositeExpansion {
    const auto lamina = laminaOf(materials, fiberFraction);
    return {lamina.a11, lamina.a22, lamina.a22};
  };
}

template <MatrixSymmetry kSymmetry>
void assessElasticOf(const double fiberFraction,
                     const TransverselyIsotropic& target,
                     const Constituents& start,
                     const Constituents& fitted,
                     Assessment& assessment) {
  const ConstituentSpace<kSymmetry> space(start);
  const LaminaProblem<kSymmetry> problem(space, target, fiberFraction);
  assessment.isExact = problem.error(space.coordinatesOf(fitted)) <= kMetWithin;
  assessment.elastic = assessElastic(problem, start, fitted, kLaminaScatter, assessment.isExact);
}

FitResult fitted(const double fiberFraction,
                 const FittedMaterials& given,
                 const FitOptions& options) {
  const auto start = admissibleStart(given, options.isotropicMatrix);
  if (!start || !makeALamina(start->constituents, fiberFraction)) {
    return noModel();
  }
  const auto target = transverselyIsotropic(given.lamina);
  const auto elastic = start->symmetry == MatrixSymmetry::isotropic
                           ? fitElastic<MatrixSymmetry::isotropic>
                           : fitElastic<MatrixSymmetry::transverselyIsotropic>;
  const auto mechanical = elastic(fiberFraction, target, start->constituents, options);
  if (!mechanical) {
    return noModel();
  }
  const auto thermal = fitExpansions(expansionModel(fiberFraction),
                                     mechanical->constituents,
                                     expansionUnknowns(*start),
                                     {target.a11, target.a22, 0.0},
                                     options.maximumThermalError);
  if (!thermal) {
    return noModel();
  }
  const auto& materials = thermal->constituents;
  const Properties lamina = properties(laminaOf(materials, fiberFraction));
  if (!isAdmissible(lamina)) {
    return noModel();
  }
  return {{lamina, properties(materials.fiber), properties(materials.matrix)},
          mechanical->summary,
          thermal->summary};
}

}  // namespace

FitResult fitUnidirectional(const double fiberFraction,
                            const FittedMaterials& given,
                            const FitOptions& options) {
  return reported(fitted(fiberFraction, given, options), options);
}

std::optional<Assessment> assess(const double fiberFraction,
                                 const FittedMaterials& given,
                                 const FittedMaterials& fitted,
                                 const FitOptions& options) {
  const auto start = admissibleStart(given, options.isotropicMatrix);
  const auto answer =
      start ? admissibleStart(fitted, start->symmetry == MatrixSymmetry::isotropic) : start;
  if (!answer || !makeALamina(start->constituents, fiberFraction)) {
    return std::nullopt;
  }
  Assessment assessment;
  assessment.predicted = properties(laminaOf(start->constituents, fiberFraction));
  if (!isFinite(assessment.predicted)) {
    return std::nullopt;
  }
  assessment.target = given.lamina;
  assessment.startMatrix = matrixModuli(properties(start->constituents.matrix));
  assessment.fittedMatrix = matrixModuli(properties(answer->constituents.matrix));
  const auto target = transverselyIsotropic(given.lamina);
  const auto elastic = start->symmetry == MatrixSymmetry::isotropic
                           ? assessElasticOf<MatrixSymmetry::isotropic>
                           : assessElasticOf<MatrixSymmetry::transverselyIsotropic>;
  elastic(fiberFraction, target, start->constituents, answer->constituents, assessment);
  assessment.expansions = assessExpansions(
      expansionModel(fiberFraction), *start, answer->constituents, {target.a11, target.a22, 0.0});
  return assessment;
}

}  // namespace kx
