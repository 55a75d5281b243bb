// SPDX-License-Identifier: BSD-3-Clause
#include "elastic/Voigt.h"

#include <gtest/gtest.h>

#include "support/RandomMaterials.h"

namespace kx {
namespace {

constexpr double kRounding = 1e-12;  // 6x6 products of contrast up to 1e3 in double precision

TEST(Voigt, StiffnessInvertsCompliance) {
  const Properties p{6.1e10, 5e10, 8.9e9, 0.05, 0.4, 0.41, 4.4e9, 3.2e9, 3.1e9, 3e-6, 4e-6, 5e-5};
  EXPECT_TRUE((stiffness(p) * compliance(p)).isApprox(Matrix6::Identity(), kRounding));
  EXPECT_TRUE(isPositiveDefinite(stiffness(p)));
}

TEST(Voigt, ConstantsSurviveTheRoundTrip) {
  const Properties p{6.1e10, 5e10, 8.9e9, 0.05, 0.4, 0.41, 4.4e9, 3.2e9, 3.1e9, 3e-6, 4e-6, 5e-5};
  const Properties fromStiffness = propertiesFromStiffness<double>(stiffness(p), expansion(p));
  const Properties fromCompliance = propertiesFromCompliance<double>(compliance(p), expansion(p));
  for (const auto member : kPropertyOrder<double>) {
    EXPECT_NEAR(fromStiffness.*member / p.*member, 1.0, kRounding);
    EXPECT_NEAR(fromCompliance.*member / p.*member, 1.0, kRounding);
  }
}

TEST(Voigt, HillModuliGiveTheStiffnessOfTheTwelveConstants) {
  test::RandomMaterials random(13);
  for (int i = 0; i < 500; ++i) {
    const TransverselyIsotropic s = random.anyFiber();
    const Matrix6 product = stiffness(s) * compliance(properties(s));
    EXPECT_LT((product - Matrix6::Identity()).cwiseAbs().maxCoeff(), 1e-10);
  }
}

TEST(Voigt, UniaxialStressContractsByThePoissonRatios) {
  const Properties p{6.1e10, 5e10, 8.9e9, 0.05, 0.4, 0.41, 4.4e9, 3.2e9, 3.1e9, 0.0, 0.0, 0.0};
  const Vector6 strain = compliance(p) * Vector6::Unit(k11);
  EXPECT_NEAR(-strain(k22) / strain(k11), p.v12, kRounding);
  EXPECT_NEAR(-strain(k33) / strain(k11), p.v13, kRounding);
  const Vector6 transverse = compliance(p) * Vector6::Unit(k22);
  EXPECT_NEAR(-transverse(k33) / transverse(k22), p.v23, kRounding);
}

TEST(Voigt, FreeExpansionIsStressFree) {
  const Properties p{6.1e10, 5e10, 8.9e9, 0.05, 0.4, 0.41, 4.4e9, 3.2e9, 3.1e9, 3e-6, 4e-6, 5e-5};
  const Vector6 stress = stiffness(p) * expansion(p) - thermalStress(p);
  EXPECT_LT(stress.norm(), kRounding * thermalStress(p).norm());
}

TEST(Voigt, PositiveDefiniteRejectsAsymmetryIndefinitenessAndNonNumbers) {
  Matrix6 c = Matrix6::Identity();
  EXPECT_TRUE(isPositiveDefinite(c));
  c(k11, k22) = 0.1;
  EXPECT_FALSE(isPositiveDefinite(c));
  c(k22, k11) = 0.1;
  EXPECT_TRUE(isPositiveDefinite(c));
  c(k23, k23) = -1.0;
  EXPECT_FALSE(isPositiveDefinite(c));
  c(k23, k23) = std::nan("");
  EXPECT_FALSE(isPositiveDefinite(c));
}

}  // namespace
}  // namespace kx
