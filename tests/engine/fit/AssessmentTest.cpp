// SPDX-License-Identifier: BSD-3-Clause
// What a fit says about itself, against the spread of fits to drawn laminae and start values.

#include "fit/Assessment.h"

#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fit/LaminaProblem.h"
#include "fit/UnidirectionalFit.h"
#include "fit/Widths.h"
#include "support/RandomMaterials.h"

namespace kx {
namespace {

struct Lamina {
  double fiberFraction = 0.6;
  FittedMaterials given;
};

Lamina carbonEpoxy() {  // AS4/3501-6 (soden1998)
  return {0.6,
          {properties(TransverselyIsotropic{126e9, 11e9, 0.28, 0.4, 6.6e9, -1e-6, 2.6e-5}),
           properties(TransverselyIsotropic{225e9, 15e9, 0.2, 0.0714, 15e9, -5e-7, 1.5e-5}),
           properties(isotropic(4.2e9, 0.34, 4.5e-5))}};
}

Lamina glassEpoxy() {  // E-glass/MY750 (soden1998)
  return {0.6,
          {properties(TransverselyIsotropic{45.6e9, 16.2e9, 0.278, 0.4, 5.83e9, 8.6e-6, 2.64e-5}),
           properties(isotropic(74e9, 0.2, 4.9e-6)),
           properties(isotropic(3.35e9, 0.35, 5.8e-5))}};
}

FitOptions isotropicMatrix() {
  FitOptions options;
  options.isotropicMatrix = true;
  return options;
}

// Small enough for a linearisation (5 % in one test moves glass by three widths), and for glass to
// stay isotropic to a per cent.
constexpr double kPart = 1e-3;

/// The lamina with its tests and start values scattered by a part of what they scatter.
Lamina drawn(const Lamina& lamina, test::RandomMaterials& random) {
  Lamina result = lamina;
  auto target = transverselyIsotropic(lamina.given.lamina);
  for (const auto& [constant, weight] : kLaminaTargets) {
    constantOf(target, constant) *= 1.0 + kPart * 0.05 / weight * random.normal();
  }
  result.given.lamina = properties(target);
  using Space = ConstituentSpace<MatrixSymmetry::isotropic>;
  const Space space(
      {transverselyIsotropic(lamina.given.fiber), transverselyIsotropic(lamina.given.matrix)});
  Space::Vector z;
  for (auto& coordinate : z) {
    coordinate = kPart * random.normal();
  }
  const Constituents start = space.at(z.data());
  result.given.fiber = properties(start.fiber);
  result.given.matrix = properties(start.matrix);
  return result;
}

std::vector<AssessedConstant> answerTo(const Lamina& drawnLamina, const Lamina& nominal) {
  const auto fit =
      fitUnidirectional(drawnLamina.fiberFraction, drawnLamina.given, isotropicMatrix());
  return assess(nominal.fiberFraction, nominal.given, fit.materials, isotropicMatrix())->elastic;
}

/// Start values as they come out. From a start as far off as the published one of AS4 (|z| 2.9) the
/// curvature of the model adds to its linearisation, up to a quarter of a deviation (fiber G12).
Lamina startingAtItsAnswer(Lamina lamina) {
  const auto fit = fitUnidirectional(lamina.fiberFraction, lamina.given, isotropicMatrix());
  lamina.given.fiber = fit.materials.fiber;
  lamina.given.matrix = fit.materials.matrix;
  return lamina;
}

// 2000 draws tell a standard deviation to 1/sqrt(4000) = 1.6 %.
TEST(Assessment, StandardDeviationsAreTheSpreadOfDrawnFits) {
  constexpr int kDraws = 2000;
  for (const Lamina& lamina : {startingAtItsAnswer(carbonEpoxy()), glassEpoxy()}) {
    const auto expected = answerTo(lamina, lamina);
    test::RandomMaterials random(71);
    Eigen::VectorXd squares = Eigen::VectorXd::Zero(7);
    for (int i = 0; i < kDraws; ++i) {
      const auto answer = answerTo(drawn(lamina, random), lamina);
      for (std::size_t k = 0; k < answer.size(); ++k) {
        squares(static_cast<Eigen::Index>(k)) += std::pow(answer[k].z - expected[k].z, 2);
      }
    }
    const Eigen::VectorXd spread = (squares / kDraws).cwiseSqrt() / kPart;
    for (std::size_t k = 0; k < expected.size(); ++k) {
      EXPECT_NEAR(spread(static_cast<Eigen::Index>(k)) / expected[k].deviationInWidths, 1.0, 0.10)
          << expected[k].name;
    }
  }
}

TEST(Assessment, TellsStartTargetAndMatrix) {
  const Lamina lamina = carbonEpoxy();
  const auto fit = fitUnidirectional(0.6, lamina.given, isotropicMatrix());
  const auto assessment = assess(0.6, lamina.given, fit.materials, isotropicMatrix()).value();
  EXPECT_EQ(assessment.target.e11, 126e9);
  EXPECT_NEAR(assessment.predicted.e11, 0.6 * 225e9 + 0.4 * 4.2e9, 0.001 * 126e9);
  EXPECT_NEAR(assessment.startMatrix.bulk, 4.2e9 / (3.0 * (1.0 - 2.0 * 0.34)), 1.0);
  EXPECT_NEAR(assessment.fittedMatrix.bulk, 5.5e9, 0.1e9);
  EXPECT_NEAR(assessment.fittedMatrix.shear, fit.materials.matrix.g12, 1.0);
  EXPECT_EQ(assessment.elastic[5].name, "matrix K");
  EXPECT_NEAR(assessment.elastic[5].fitted, assessment.fittedMatrix.bulk, 1.0);
  EXPECT_DOUBLE_EQ(assessment.elastic[0].width, 0.05 * 225e9);
  EXPECT_NEAR(assessment.elastic[0].standardDeviation,
              assessment.elastic[0].deviationInWidths * 0.05 * fit.materials.fiber.e11,
              1.0);
  EXPECT_EQ(assessment.farthest().name, "fiber A11");
  EXPECT_FALSE(assessment.isAnyAtBound());
}

TEST(Assessment, TellsABoundThatHoldsTheFitBack) {
  Lamina lamina = carbonEpoxy();
  for (const auto modulus : {&Properties::e11, &Properties::e22, &Properties::g12}) {
    lamina.given.lamina.*modulus *= 1e-3;
  }
  const auto fit = fitUnidirectional(0.6, lamina.given, isotropicMatrix());
  const auto assessment = assess(0.6, lamina.given, fit.materials, isotropicMatrix()).value();
  EXPECT_FALSE(assessment.isExact);
  EXPECT_TRUE(assessment.isAnyAtBound());
}

// A constant that no test sees keeps the width of its start; a test of it alone replaces it.
TEST(Assessment, SeenDirectionsCarryTheTestsAndUnseenOnesTheStart) {
  Eigen::MatrixXd jacobian = Eigen::MatrixXd::Zero(1, 2);
  jacobian(0, 0) = 0.5;
  const auto exact = uncertaintyOf(jacobian, 0.05, true);
  EXPECT_NEAR(exact.standardDeviation(0), 0.05 / 0.5, 1e-12);
  EXPECT_NEAR(exact.standardDeviation(1), 1.0, 1e-12);
  const auto compromise = uncertaintyOf(jacobian, 0.05, false);
  const double told = 0.25 / (0.25 + 0.0025);
  EXPECT_NEAR(compromise.resolution(0), told, 1e-12);
  EXPECT_NEAR(compromise.standardDeviation(0), std::sqrt(1.0 - told), 1e-12);
  EXPECT_EQ(compromise.resolution(1), 0.0);
}

}  // namespace
}  // namespace kx
