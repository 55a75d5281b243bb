// SPDX-License-Identifier: BSD-3-Clause
#include "fit/ThermalFit.h"

#include <cmath>

#include <Eigen/Dense>

#include "fit/Widths.h"

namespace kx {
namespace {

// Directions in which the composite expands a thousand times less are noise, not information.
constexpr double kRankTolerance = 1e-3;

Constituents moved(Constituents materials, const ExpansionUnknown& unknown, const double change) {
  auto& phase = materials.*unknown.phase;
  phase.*unknown.member += change * unknown.width;
  if (unknown.isIsotropic) {
    phase.a22 = phase.a11;
  }
  return materials;
}

}  // namespace

std::vector<ExpansionUnknown> expansionUnknowns(const FitStart& start) {
  using Solid = TransverselyIsotropic;
  const auto& [fiber, matrix] = start.constituents;
  const bool glass = isIsotropicFiber(fiber);
  const auto& along = glass ? kIsotropicFiberExpansion : kFiberAxialExpansion;
  const auto& across = glass ? kIsotropicFiberExpansion : kFiberTransverseExpansion;
  const bool isotropicMatrix = start.symmetry == MatrixSymmetry::isotropic;
  std::vector<ExpansionUnknown> list{
      {"fiber A11", &Constituents::fiber, &Solid::a11, along.of(fiber.a11)},
      {"fiber A22", &Constituents::fiber, &Solid::a22, across.of(fiber.a22)},
      {isotropicMatrix ? "matrix A" : "matrix A11",
       &Constituents::matrix,
       &Solid::a11,
       kMatrixExpansion.of(matrix.a11),
       isotropicMatrix}};
  if (!isotropicMatrix) {
    list.push_back(
        {"matrix A22", &Constituents::matrix, &Solid::a22, kMatrixExpansion.of(matrix.a22)});
  }
  return list;
}

Eigen::Matrix3Xd expansionSensitivity(const ExpansionModel& model,
                                      const Constituents& materials,
                                      const std::vector<ExpansionUnknown>& unknowns) {
  const CompositeExpansion start = model(materials);
  Eigen::Matrix3Xd columns(3, unknowns.size());
  for (std::size_t k = 0; k < unknowns.size(); ++k) {
    columns.col(static_cast<Eigen::Index>(k)) = model(moved(materials, unknowns[k], 1.0)) - start;
  }
  return columns;
}

double expansionError(const CompositeExpansion& value, const CompositeExpansion& target) {
  RelativeRms rms;
  for (Eigen::Index i = 0; i < target.size(); ++i) {
    if (target(i) != 0.0) {
      rms.add(value(i), target(i));
    }
  }
  return rms.value();
}

std::optional<ThermalFitResult> fitExpansions(const ExpansionModel& model,
                                              const Constituents& start,
                                              const std::vector<ExpansionUnknown>& unknowns,
                                              const CompositeExpansion& target,
                                              const double maximumError) {
  const CompositeExpansion expansion = model(start);
  const double initial = expansionError(expansion, target);
  const Eigen::Vector3d given = (target.array() != 0.0).cast<double>();
  const Eigen::MatrixXd rows = given.asDiagonal() * expansionSensitivity(model, start, unknowns);
  if (!std::isfinite(initial) || !target.allFinite() || !expansion.allFinite() ||
      !rows.allFinite()) {
    return std::nullopt;
  }
  ThermalFitResult unmoved{start, expansion, summaryOf(initial, initial, maximumError, 0)};
  if (given.isZero()) {
    return unmoved;
  }
  Eigen::JacobiSVD<Eigen::MatrixXd> svd(rows, Eigen::ComputeThinU | Eigen::ComputeThinV);
  svd.setThreshold(kRankTolerance);
  const Eigen::VectorXd change = svd.solve(given.asDiagonal() * (target - expansion));

  ThermalFitResult result{start, {}, {}};
  for (std::size_t k = 0; k < unknowns.size(); ++k) {
    result.constituents =
        moved(result.constituents, unknowns[k], change(static_cast<Eigen::Index>(k)));
  }
  result.expansion = model(result.constituents);
  const double error = expansionError(result.expansion, target);
  if (!(error <= initial)) {
    return unmoved;
  }
  result.summary = summaryOf(initial, error, maximumError, 1);
  return result;
}

}  // namespace kx
