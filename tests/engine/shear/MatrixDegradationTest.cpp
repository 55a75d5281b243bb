// SPDX-License-Identifier: BSD-3-Clause
#include "shear/MatrixDegradation.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "elastic/TransverselyIsotropic.h"
#include "lamina/UnidirectionalLamina.h"
#include "support/ReferenceData.h"

namespace {

double valueAt(const kx::MatrixDegradation& c, double d) {
  return c[0] + c[1] * d + c[2] * d * d;
}

TEST(MatrixDegradation, InvertsTheAxialShearModulusOfTheLamina) {
  const auto fiber = kx::isotropic(72e9, 0.22, 5e-6);
  for (const double c : {0.1, 0.45, 0.6, 0.75}) {
    for (const double shear : {0.05e9, 0.4e9, 1.3e9, 29e9}) {
      auto matrix = kx::isotropic(3.4e9, 0.36, 6e-5);
      matrix.g12 = shear;
      const double composite = kx::homogenise(fiber, matrix, c).effective.g12;
      // one root of a quadratic: a few roundings
      EXPECT_NEAR(kx::matrixShearModulusFor(c, fiber.g12, composite), shear, 1e-12 * shear);
    }
  }
}

TEST(MatrixDegradation, FitsTheComputedReferences) {
  const auto computed = kx::test::reference("computed.json");
  for (const auto& curve : computed["prefail"]) {
    if (!curve.contains("c2mdeg")) {
      continue;
    }
    const auto& inputs = curve["c2m_inputs"];
    const auto c = kx::unidirectionalMatrixDegradation(
        inputs["vf"], inputs["Gf"], inputs["Gm"], inputs["dmin"]);
    for (std::size_t i = 0; i < c.size(); ++i) {
      // the reference prints ten digits
      EXPECT_NEAR(c[i], curve["c2mdeg"][i].get<double>(), 1e-9) << curve["name"] << " c" << i;
    }
  }
}

TEST(MatrixDegradation, IntactCompositeMeansIntactMatrix) {
  const auto c = kx::unidirectionalMatrixDegradation(0.6, 27e9, 1.5e9, 0.4);
  // the quadratic leaves up to 0.003 of the exact curve for stiff fibers
  EXPECT_NEAR(valueAt(c, 1.0), 1.0, 3e-3);
  EXPECT_LT(valueAt(c, 0.5), 0.5);
}

/// The quadratic through the exact curve, sampled from `lowest` to 1.
kx::MatrixDegradation quadraticDownTo(double lowest) {
  constexpr double kFiber = 27e9;
  constexpr double kMatrix = 1.5e9;
  constexpr double kVolume = 0.6;
  const auto matrix = kx::isotropic(2.0 * 1.35 * kMatrix, 0.35, 6e-5);
  auto fiber = kx::isotropic(72e9, 0.22, 5e-6);
  fiber.g12 = kFiber;
  const double intact = kx::homogenise(fiber, matrix, kVolume).effective.g12;
  std::vector<kx::DegradationPair> pairs;
  for (int i = 0; i <= 40; ++i) {
    const double d = lowest + (1.0 - lowest) * i / 40.0;
    pairs.push_back({d, kx::matrixShearModulusFor(kVolume, kFiber, d * intact) / kMatrix});
  }
  return kx::fitMatrixDegradation(pairs);
}

TEST(MatrixDegradation, IsFittedDownToTheLowestDegradationButNotBelowATwentieth) {
  const struct {
    double lowest, sampledFrom;
  } kCases[] = {{0.5, 0.5}, {0.2, 0.2}, {0.07, 0.07}, {0.05, 0.05}, {0.02, 0.05}, {0.0, 0.05}};
  for (const auto& given : kCases) {
    const auto c = kx::unidirectionalMatrixDegradation(0.6, 27e9, 1.5e9, given.lowest);
    const auto expected = quadraticDownTo(given.sampledFrom);
    for (std::size_t i = 0; i < c.size(); ++i) {
      // the same 41 pairs up to rounding, through a well-conditioned fit
      EXPECT_NEAR(c[i], expected[i], 1e-12) << given.lowest << " c" << i;
    }
  }
}

TEST(MatrixDegradation, FitsAnyPairsByLeastSquares) {
  std::vector<kx::DegradationPair> pairs;
  for (const double d : {1.0, 0.8, 0.6, 0.45, 0.3, 0.2, 0.12}) {
    pairs.push_back({d, 0.007 + 0.695 * d + 0.297 * d * d});
  }
  const auto c = kx::fitMatrixDegradation(pairs);
  EXPECT_NEAR(c[0], 0.007, 1e-13);
  EXPECT_NEAR(c[1], 0.695, 1e-12);
  EXPECT_NEAR(c[2], 0.297, 1e-12);
}

TEST(MatrixDegradation, AbsurdInputDegradesMatrixAndCompositeAlike) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(kx::unidirectionalMatrixDegradation(nan, 1e9, 1e9, 0.5), kx::kEqualDegradation);
  EXPECT_EQ(kx::unidirectionalMatrixDegradation(0.6, -1e9, 1e9, 0.5), kx::kEqualDegradation);
  EXPECT_EQ(kx::unidirectionalMatrixDegradation(0.6, 1e9, 0.0, 0.5), kx::kEqualDegradation);
  EXPECT_EQ(kx::unidirectionalMatrixDegradation(1.0, 1e9, 1e9, 0.5), kx::kEqualDegradation);
  EXPECT_EQ(kx::fitMatrixDegradation({}), kx::kEqualDegradation);
  EXPECT_EQ(kx::fitMatrixDegradation({{1, 1}, {1, 1}, {1, 1}}), kx::kEqualDegradation);
  EXPECT_EQ(kx::fitMatrixDegradation({{1, nan}, {0.5, 1}, {0.1, 1}}), kx::kEqualDegradation);
  for (const double lowest : {nan, -1.0, 2.0, 1.0}) {
    const auto c = kx::unidirectionalMatrixDegradation(0.6, 27e9, 1.5e9, lowest);
    EXPECT_TRUE(std::isfinite(c[0] + c[1] + c[2])) << lowest;
  }
}

}  // namespace
