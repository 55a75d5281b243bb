// SPDX-License-Identifier: BSD-3-Clause
#include "fit/MatrixSymmetry.h"

#include <cmath>

#include <gtest/gtest.h>

namespace kx {
namespace {

Properties epoxy() {
  return properties(isotropic(3.5e9, 0.35, 5.7e-5));
}

void expectIsotropic(const MatrixStart& start) {
  EXPECT_EQ(start.symmetry, MatrixSymmetry::isotropic);
  EXPECT_EQ(start.constants.e11, start.constants.e22);
  EXPECT_EQ(start.constants.v12, start.constants.v23);
  EXPECT_EQ(start.constants.g12, start.constants.e11 / (2.0 * (1.0 + start.constants.v12)));
  EXPECT_EQ(start.constants.a11, start.constants.a22);
}

TEST(MatrixSymmetry, FlagMakesIsotropicWhateverTheValues) {
  Properties p = epoxy();
  p.e22 *= 3.0;
  const MatrixStart start = matrixStart(p, true);
  expectIsotropic(start);
  EXPECT_EQ(start.constants.e11, 3.5e9);
}

TEST(MatrixSymmetry, IsotropicValuesAreRecognisedUpToRounding) {
  Properties p = epoxy();
  p.e33 *= 1.0 + 1e-9;
  p.g13 *= 1.0 - 1e-9;
  const MatrixStart start = matrixStart(p, false);
  expectIsotropic(start);
  EXPECT_EQ(start.constants.v12, 0.35);
}

TEST(MatrixSymmetry, PlaneOneTwoIsFittedAsIsotropic) {
  Properties p = epoxy();
  p.e33 = 5e9;
  p.v13 = p.v23 = 0.3;
  p.g13 = p.g23 = 1.1e9;
  p.a33 = 3e-5;
  const MatrixStart start = matrixStart(p, false);
  expectIsotropic(start);
  EXPECT_NEAR(start.constants.e11, std::cbrt(3.5e9 * 3.5e9 * 5e9), 1.0);
  EXPECT_NEAR(start.constants.v12, (0.35 + 0.6) / 3.0, 1e-15);
  EXPECT_NEAR(start.constants.a11, (2 * 5.7e-5 + 3e-5) / 3.0, 1e-18);
}

TEST(MatrixSymmetry, PlaneTwoThreeKeepsItsValues) {
  const TransverselyIsotropic solid{3.1e9, 4.4e9, 0.29, 0.37, 1.9e9, 5.2e-5, 3.8e-5};
  const MatrixStart start = matrixStart(properties(solid), false);
  EXPECT_EQ(start.symmetry, MatrixSymmetry::transverselyIsotropic);
  for (const auto member : kElasticMembers<double>) {
    EXPECT_EQ(start.constants.*member, solid.*member);
  }
}

TEST(MatrixSymmetry, OrthotropicValuesAreAveragedOverTwoAndThree) {
  const Properties p{3e9, 4e9, 5e9, 0.30, 0.34, 0.36, 1.2e9, 1.4e9, 1.3e9, 5e-5, 4e-5, 6e-5};
  const MatrixStart start = matrixStart(p, false);
  EXPECT_EQ(start.symmetry, MatrixSymmetry::transverselyIsotropic);
  EXPECT_NEAR(start.constants.e22, std::sqrt(20.0) * 1e9, 1.0);
  EXPECT_NEAR(start.constants.v12, 0.32, 1e-15);
  EXPECT_NEAR(start.constants.g12, std::sqrt(1.2 * 1.4) * 1e9, 1.0);
  EXPECT_NEAR(start.constants.a22, 5e-5, 1e-18);
}

TEST(MatrixSymmetry, ZerosAndNonNumbersPassThrough) {
  EXPECT_EQ(matrixStart(Properties{}, false).constants.e11, 0.0);
  Properties p = epoxy();
  p.e22 = std::nan("");
  EXPECT_FALSE(isAdmissible(matrixStart(p, false).constants));
}

}  // namespace
}  // namespace kx
