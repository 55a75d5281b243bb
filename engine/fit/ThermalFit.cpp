#include "fit/ThermalFit.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <Eigen/Dense>

namespace kx {
namespace {

/// One expansion that the fit may move, in units of its scale.
struct ThermalUnknown {
  TransverselyIsotropic Constituents::*phase;
  double TransverselyIsotropic::*member;
  double scale;
};

// Scales where a start value is near zero: the smallest expansions that are told apart in tests of
// fibers along and across their axis, and of polymers [1/K].
constexpr double kFiberAxialScale = 1e-6;
constexpr double kFiberTransverseScale = 5e-6;
constexpr double kMatrixScale = 2e-5;

// Directions in which the composite expands a thousand times less are noise, not information.
constexpr double kRankTolerance = 1e-3;

constexpr double kNoModelError = 1.0;

std::vector<ThermalUnknown> unknowns(const Constituents& start, const MatrixSymmetry symmetry) {
  const auto scale = [](const double value, const double least) {
    return std::max(std::abs(value), least);
  };
  std::vector<ThermalUnknown> list{
      {&Constituents::fiber, &TransverselyIsotropic::a11, scale(start.fiber.a11, kFiberAxialScale)},
      {&Constituents::fiber,
       &TransverselyIsotropic::a22,
       scale(start.fiber.a22, kFiberTransverseScale)},
      {&Constituents::matrix, &TransverselyIsotropic::a11, scale(start.matrix.a11, kMatrixScale)}};
  if (symmetry == MatrixSymmetry::transverselyIsotropic) {
    list.push_back({&Constituents::matrix,
                    &TransverselyIsotropic::a22,
                    scale(start.matrix.a22, kMatrixScale)});
  }
  return list;
}

Constituents moved(Constituents materials,
                   const ThermalUnknown& unknown,
                   const double change,
                   const MatrixSymmetry symmetry) {
  materials.*(unknown.phase).*(unknown.member) += change * unknown.scale;
  if (symmetry == MatrixSymmetry::isotropic) {
    materials.matrix.a22 = materials.matrix.a11;
  }
  return materials;
}

double relativeRms(const CompositeExpansion& value, const CompositeExpansion& target) {
  double sum = 0.0;
  int count = 0;
  for (Eigen::Index i = 0; i < target.size(); ++i) {
    if (target(i) == 0.0) {
      continue;
    }
    const double deviation = value(i) / target(i) - 1.0;
    sum += deviation * deviation;
    ++count;
  }
  return count == 0 ? 0.0 : std::sqrt(sum / count);
}

/// Rows of the targets that are given; columns of the unknowns.
Eigen::MatrixXd sensitivity(const ExpansionModel& model,
                            const ThermalFitResult& start,
                            const std::vector<ThermalUnknown>& list,
                            const MatrixSymmetry symmetry,
                            const CompositeExpansion& target) {
  Eigen::MatrixXd rows(3, list.size());
  for (std::size_t k = 0; k < list.size(); ++k) {
    rows.col(static_cast<Eigen::Index>(k)) =
        model(moved(start.constituents, list[k], 1.0, symmetry)) - start.expansion;
  }
  return (target.array() != 0.0).cast<double>().matrix().asDiagonal() * rows;
}

}  // namespace

ThermalFitResult fitExpansions(const ExpansionModel& model,
                               const Constituents& start,
                               const MatrixSymmetry symmetry,
                               const CompositeExpansion& target,
                               const double maximumError) {
  ThermalFitResult result{start, model(start), {}};
  const double initial = relativeRms(result.expansion, target);
  const bool usable = std::isfinite(initial) && (target.array() != 0.0).any();
  result.summary = {Termination::failed, initial, initial, 0};
  if (!usable) {
    if (!std::isfinite(initial)) {
      result.summary.initialError = kNoModelError;
    }
    result.summary.finalError = std::max(result.summary.initialError, 0.0);
    return result;
  }

  const auto list = unknowns(start, symmetry);
  const Eigen::MatrixXd rows = sensitivity(model, result, list, symmetry, target);
  if (!rows.allFinite()) {
    return result;
  }
  Eigen::JacobiSVD<Eigen::MatrixXd> svd(rows, Eigen::ComputeThinU | Eigen::ComputeThinV);
  svd.setThreshold(kRankTolerance);
  const CompositeExpansion missing = (target.array() != 0.0).select(target - result.expansion, 0.0);
  const Eigen::VectorXd change = svd.solve(missing);

  Constituents fitted = start;
  for (std::size_t k = 0; k < list.size(); ++k) {
    fitted = moved(fitted, list[k], change(static_cast<Eigen::Index>(k)), symmetry);
  }
  const CompositeExpansion expansion = model(fitted);
  const double error = relativeRms(expansion, target);
  if (!(error <= initial)) {
    return result;
  }
  return {fitted,
          expansion,
          {error <= maximumError ? Termination::converged : Termination::bestCompromise,
           initial,
           error,
           1}};
}

}  // namespace kx
