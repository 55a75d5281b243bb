// SPDX-License-Identifier: BSD-3-Clause
// Reduction of random shear curves, and what a matrix loses with its composite.

#include <algorithm>
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "lamina/UnidirectionalLamina.h"
#include "shear/MatrixDegradation.h"
#include "shear/ShearCurve.h"
#include "support/RandomMaterials.h"

namespace kx {
namespace {

/// A curve that rises along a secant law, each point off by up to `scatter` of itself.
std::vector<ShearPoint> anyCurve(test::RandomMaterials& random,
                                 const double strength,
                                 const double scatter) {
  SecantLaw law;
  law.initialModulus = random.logUniform(5e8, 2e10);
  law.threshold = random.uniform(0.05, 0.9) * strength;
  const double asymptote = random.uniform(1.02, 5.0) * strength;
  law.m = -1.0 / (asymptote - law.threshold);
  law.b = -law.m * asymptote;
  std::vector<ShearPoint> points;
  const double count = std::floor(random.uniform(4.0, 60.0));
  for (double i = 1.0; i <= count; ++i) {
    const double stress = strength * i / count;
    points.push_back({stress * random.uniform(1.0 - scatter, 1.0 + scatter),
                      law.strainAt(stress) * random.uniform(1.0 - scatter, 1.0 + scatter)});
  }
  return points;
}

void expectSound(const ShearReduction& reduction, const double strength, const double peak) {
  const SecantLaw& law = reduction.law;
  EXPECT_TRUE(std::isfinite(law.initialModulus) && law.initialModulus > 0.0);
  EXPECT_TRUE(std::isfinite(law.m) && law.m < 0.0);
  EXPECT_TRUE(std::isfinite(law.b) && law.b > 1.0);
  EXPECT_GT(law.threshold, 0.0);
  EXPECT_LT(law.threshold, std::max(peak, strength));
  // d falls from 1 at the threshold; b cancels against m times the threshold, which may be 1e3
  EXPECT_NEAR(law.m * law.threshold + law.b, 1.0, 1e-12 * law.b);
  EXPECT_GT(reduction.lowestDegradation, 0.0);
  EXPECT_LE(reduction.lowestDegradation, 1.0);
  EXPECT_GE(reduction.stressDeviation, 0.0);
  EXPECT_TRUE(std::isfinite(reduction.stressDeviation));
}

TEST(RandomShear, CurvesGiveASoundLawOrNone) {
  test::RandomMaterials random(79);
  int reduced = 0;
  constexpr int kTrials = 600;
  for (int trial = 0; trial < kTrials && !testing::Test::HasFailure(); ++trial) {
    SCOPED_TRACE(trial);
    const double strength = random.logUniform(1e7, 2e8);
    const auto points = anyCurve(random, strength, trial % 3 * 0.1);
    const double peak = std::max_element(points.begin(), points.end(), [](auto& a, auto& b) {
                          return a.stress < b.stress;
                        })->stress;
    const ShearReduction reduction = reduceShearCurve(points, trial % 2 == 0 ? strength : 0.0);
    if (reduction.verdict == CurveVerdict::reduced) {
      expectSound(reduction, strength, peak);
      ++reduced;
    } else {
      EXPECT_EQ(reduction.law.m, 0.0);
      EXPECT_EQ(reduction.lowestDegradation, 1.0);
    }
  }
  EXPECT_GT(reduced, kTrials / 2);
}

TEST(RandomShear, MatrixModulusIsThatOfTheLaminaAndGrowsWithIt) {
  test::RandomMaterials random(83);
  for (int trial = 0; trial < 5000 && !testing::Test::HasFailure(); ++trial) {
    SCOPED_TRACE(trial);
    const double c = random.uniform(0.02, 0.95);
    const auto fiber = random.anyFiber();
    const auto matrix = random.anyMatrix();
    const double intact = homogenise(fiber, matrix, c).effective.g12;
    // one root of a quadratic: a few roundings, amplified by contrasts of up to 1e3
    EXPECT_NEAR(matrixShearModulusFor(c, fiber.g12, intact) / matrix.g12, 1.0, 1e-10);
    const double degraded = random.uniform(0.05, 0.999) * intact;
    const double left = matrixShearModulusFor(c, fiber.g12, degraded);
    EXPECT_GT(left, 0.0);
    EXPECT_LT(left, matrix.g12);
  }
}

TEST(RandomShear, DegradationOfTheMatrixIsFinite) {
  test::RandomMaterials random(89);
  for (int trial = 0; trial < 2000; ++trial) {
    const auto c = unidirectionalMatrixDegradation(random.uniform(0.001, 0.999),
                                                   random.logUniform(1e6, 1e13),
                                                   random.logUniform(1e6, 1e13),
                                                   random.uniform(-0.5, 1.5));
    for (const double coefficient : c) {
      EXPECT_TRUE(std::isfinite(coefficient)) << trial;
    }
  }
}

}  // namespace
}  // namespace kx
