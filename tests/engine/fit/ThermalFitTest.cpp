// SPDX-License-Identifier: BSD-3-Clause
#include "fit/ThermalFit.h"

#include <cmath>

#include <gtest/gtest.h>
#include <Eigen/Geometry>

#include "lamina/UnidirectionalLamina.h"

namespace kx {
namespace {

constexpr double kMaximumError = 1e-3;

Constituents carbonEpoxy() {
  return {{230e9, 15e9, 0.2, 0.25, 20e9, -6e-7, 1.2e-5}, isotropic(3.5e9, 0.35, 5.7e-5)};
}

CompositeExpansion lamina(const Constituents& materials) {
  const auto effective = homogenise(materials.fiber, materials.matrix, 0.6).effective;
  return {effective.a11, effective.a22, effective.a22};
}

FitStart startOf(const MatrixSymmetry symmetry) {
  return {carbonEpoxy(), symmetry};
}

ThermalFitResult fit(const CompositeExpansion& target,
                     const MatrixSymmetry symmetry = MatrixSymmetry::isotropic) {
  const auto unknowns = expansionUnknowns(startOf(symmetry));
  return fitExpansions(lamina, carbonEpoxy(), unknowns, target, kMaximumError).value();
}

TEST(ThermalFit, OneStepMeetsTheTargets) {
  for (const auto symmetry : {MatrixSymmetry::isotropic, MatrixSymmetry::transverselyIsotropic}) {
    const ThermalFitResult result = fit({-1e-6, 2.6e-5, 0.0}, symmetry);
    EXPECT_EQ(result.summary.termination, Termination::converged);
    EXPECT_EQ(result.summary.iterations, 1);
    EXPECT_LT(result.summary.finalError, 1e-12);
    EXPECT_NEAR(result.expansion(0), -1e-6, 1e-18);
    EXPECT_NEAR(result.expansion(1), 2.6e-5, 1e-17);
  }
}

TEST(ThermalFit, ElasticConstantsAndIsotropyStay) {
  const Constituents fitted = fit({-1e-6, 2.6e-5, 0.0}).constituents;
  for (const auto member : kElasticMembers<double>) {
    EXPECT_EQ(fitted.fiber.*member, carbonEpoxy().fiber.*member);
    EXPECT_EQ(fitted.matrix.*member, carbonEpoxy().matrix.*member);
  }
  EXPECT_EQ(fitted.matrix.a11, fitted.matrix.a22);
}

// The solution is the shortest in widths exactly when no combination of moves that leaves
// the lamina's expansion as it is could shorten it.
TEST(ThermalFit, TakesTheShortestMove) {
  const Constituents start = carbonEpoxy();
  const Constituents fitted = fit({-1e-6, 2.6e-5, 0.0}).constituents;
  const double fiberAxial = 0.5e-6;
  const double fiberTransverse = 0.30 * start.fiber.a22;
  const double matrix = 0.25 * start.matrix.a11;
  const Eigen::Vector3d move((fitted.fiber.a11 - start.fiber.a11) / fiberAxial,
                             (fitted.fiber.a22 - start.fiber.a22) / fiberTransverse,
                             (fitted.matrix.a11 - start.matrix.a11) / matrix);
  const auto response = [&](const double f1, const double f2, const double m) {
    Constituents only = start;
    only.fiber.a11 = f1;
    only.fiber.a22 = f2;
    only.matrix.a11 = only.matrix.a22 = m;
    return lamina(only);
  };
  Eigen::Matrix<double, 2, 3> rows;
  rows.col(0) = response(fiberAxial, 0.0, 0.0).head<2>();
  rows.col(1) = response(0.0, fiberTransverse, 0.0).head<2>();
  rows.col(2) = response(0.0, 0.0, matrix).head<2>();
  const Eigen::Vector3d idle = rows.row(0).cross(rows.row(1)).transpose().normalized();
  EXPECT_NEAR(move.dot(idle), 0.0, 1e-10 * move.norm());
}

TEST(ThermalFit, SkipsATargetThatIsNotGiven) {
  const ThermalFitResult result = fit({0.0, 2.6e-5, 0.0});
  EXPECT_NEAR(result.expansion(1), 2.6e-5, 1e-17);
  EXPECT_LT(result.summary.finalError, 1e-12);
}

TEST(ThermalFit, ReportsTheErrorsOfStartAndResult) {
  const CompositeExpansion target(-1e-6, 2.6e-5, 0.0);
  const ThermalFitResult result = fit(target);
  const CompositeExpansion start = lamina(carbonEpoxy());
  const double expected = std::sqrt(
      0.5 * (std::pow(start(0) / target(0) - 1.0, 2) + std::pow(start(1) / target(1) - 1.0, 2)));
  EXPECT_DOUBLE_EQ(result.summary.initialError, expected);
}

TEST(ThermalFit, WithoutTargetsTheStartStaysWithoutError) {
  const ThermalFitResult result = fit(CompositeExpansion::Zero());
  EXPECT_EQ(result.summary.iterations, 0);
  EXPECT_EQ(result.summary.initialError, 0.0);
  EXPECT_EQ(result.summary.finalError, 0.0);
  EXPECT_EQ(result.constituents.fiber.a11, carbonEpoxy().fiber.a11);
}

TEST(ThermalFit, GlassExpandsAlikeWithinItsWidths) {
  FitStart glass = startOf(MatrixSymmetry::isotropic);
  glass.constituents.fiber = isotropic(73e9, 0.22, 5e-6);
  const auto unknowns = expansionUnknowns(glass);
  EXPECT_EQ(unknowns[0].width, 0.5e-6);
  EXPECT_EQ(unknowns[1].width, 0.5e-6);
  const auto carbon = expansionUnknowns(startOf(MatrixSymmetry::isotropic));
  EXPECT_EQ(carbon[0].width, 0.5e-6);
  EXPECT_DOUBLE_EQ(carbon[1].width, 0.30 * 1.2e-5);
}

TEST(ThermalFit, WithoutNumbersThereIsNoFit) {
  const auto unknowns = expansionUnknowns(startOf(MatrixSymmetry::isotropic));
  for (const double bad : {std::nan(""), HUGE_VAL}) {
    EXPECT_FALSE(fitExpansions(lamina, carbonEpoxy(), unknowns, {bad, 2.6e-5, 0.0}, kMaximumError));
  }
  const auto broken = [](const Constituents&) -> CompositeExpansion {
    return CompositeExpansion::Constant(std::nan(""));
  };
  EXPECT_FALSE(fitExpansions(broken, carbonEpoxy(), unknowns, {1e-6, 2e-5, 0.0}, kMaximumError));
}

}  // namespace
}  // namespace kx
