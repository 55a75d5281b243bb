// SPDX-License-Identifier: BSD-3-Clause
// The unidirectional model and its fit on random admissible materials, sound or absurd for an
// engineer. KX_RANDOM_FITS in the environment sets how many (a million takes a quarter of an hour).

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>

#include <gtest/gtest.h>
#include <Eigen/Eigenvalues>

#include "elastic/Voigt.h"
#include "fit/UnidirectionalFit.h"
#include "lamina/UnidirectionalLamina.h"
#include "support/RandomMaterials.h"

namespace kx {
namespace {

long fitCount() {
  const char* const text = std::getenv("KX_RANDOM_FITS");
  return text == nullptr ? 2000 : std::atol(text);
}

double smallestEigenvalue(const Matrix6& matrix) {
  return Eigen::SelfAdjointEigenSolver<Matrix6>(matrix, Eigen::EigenvaluesOnly).eigenvalues()[0];
}

/// Whether `upper` - `lower` has no negative eigenvalue but for rounding, which contrasts of up to
/// 1e3 between the phases amplify.
bool isBelow(const Matrix6& lower, const Matrix6& upper) {
  return smallestEigenvalue(upper - lower) > -1e-11 * upper.norm();
}

/// Energy lies between that of equal strains (voigt1889) and that of equal stresses (reuss1929).
void expectWithinBounds(const TransverselyIsotropic& fiber,
                        const TransverselyIsotropic& matrix,
                        const double c,
                        const Properties& lamina) {
  ASSERT_TRUE(isAdmissible(lamina));
  const Properties f = properties(fiber);
  const Properties m = properties(matrix);
  EXPECT_TRUE(isBelow(stiffness(lamina), c * stiffness(f) + (1.0 - c) * stiffness(m)));
  EXPECT_TRUE(isBelow(compliance(lamina), c * compliance(f) + (1.0 - c) * compliance(m)));
}

void expectTransverselyIsotropic(const Properties& p) {
  EXPECT_TRUE(p.e22 == p.e33 && p.v12 == p.v13 && p.g12 == p.g13 && p.a22 == p.a33);
  EXPECT_EQ(p.g23, p.e22 / (2.0 * (1.0 + p.v23)));
}

void expectIsotropic(const Properties& p) {
  EXPECT_TRUE(p.e11 == p.e22 && p.v12 == p.v23 && p.g12 == p.g23 && p.a11 == p.a22);
}

void expectNoWorse(const FitSummary& fit) {
  EXPECT_GE(fit.initialError, 0.0);
  EXPECT_LE(fit.finalError, fit.initialError);
  EXPECT_GE(fit.iterations, 0);
}

void expectSound(const FitResult& result, const bool isMatrixIsotropic) {
  for (const Properties* set :
       {&result.materials.lamina, &result.materials.fiber, &result.materials.matrix}) {
    EXPECT_TRUE(isAdmissible(*set));
    expectTransverselyIsotropic(*set);
  }
  if (isMatrixIsotropic) {
    expectIsotropic(result.materials.matrix);
  }
  expectNoWorse(result.mechanical);
  expectNoWorse(result.thermal);
}

/// A lamina of some constituents, or in every fourth case any solid, which may have none.
Properties anyTarget(test::RandomMaterials& random, const double c, const long i) {
  const auto fiber = random.anyFiber();
  if (i % 4 == 3) {
    return properties(fiber);
  }
  const auto matrix = random.anyMatrix();
  const Properties lamina = properties(homogenise(fiber, matrix, c).effective);
  expectWithinBounds(fiber, matrix, c, lamina);
  return lamina;
}

TEST(RandomFits, AreAdmissibleNoWorseThanTheirStartAndKeepTheSymmetries) {
  using Clock = std::chrono::steady_clock;
  test::RandomMaterials random(61);
  Clock::duration slowest{};
  Clock::duration all{};
  const long count = fitCount();
  for (long i = 0; i < count && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(i);
    const double c = random.uniform(0.02, 0.95);
    FitOptions options;
    options.isotropicMatrix = i % 2 == 0;
    const auto matrix = options.isotropicMatrix ? random.isotropicMatrix() : random.anyMatrix();
    const FittedMaterials given{
        anyTarget(random, c, i), properties(random.anyFiber()), properties(matrix)};
    const auto start = Clock::now();
    const auto result = fitUnidirectional(c, given, options);
    const auto time = Clock::now() - start;
    slowest = std::max(slowest, time);
    all += time;
    expectSound(result, options.isotropicMatrix);
  }
  const auto microseconds = [](const Clock::duration time) {
    return std::chrono::duration<double, std::micro>(time).count();
  };
  std::cout << count << " fits, " << microseconds(all) / static_cast<double>(count)
            << " us on average, the slowest " << microseconds(slowest) << " us\n";
}

}  // namespace
}  // namespace kx
