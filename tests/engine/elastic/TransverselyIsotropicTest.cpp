// SPDX-License-Identifier: BSD-3-Clause
#include "elastic/TransverselyIsotropic.h"

#include <gtest/gtest.h>

#include "support/RandomMaterials.h"

namespace kx {
namespace {

TEST(TransverselyIsotropic, SymmetryFixesTheFiveOtherConstants) {
  const Properties p =
      properties(TransverselyIsotropic{2e11, 1.4e10, 0.2, 0.25, 2e10, -1e-6, 1e-5});
  EXPECT_EQ(p.e33, p.e22);
  EXPECT_EQ(p.v13, p.v12);
  EXPECT_EQ(p.g13, p.g12);
  EXPECT_EQ(p.a33, p.a22);
  EXPECT_DOUBLE_EQ(p.g23, 5.6e9);
}

TEST(TransverselyIsotropic, IsotropicSolidHasTheModuliOfElementaryElasticity) {
  const double e = 3.5e9;
  const double v = 0.35;
  const HillModuli hill = hillModuli(isotropic(e, v, 5e-5));
  const double g = e / (2.0 * (1.0 + v));
  const double bulk = e / (3.0 * (1.0 - 2.0 * v));
  EXPECT_NEAR(hill.m, g, 1e-15 * e);
  EXPECT_NEAR(hill.p, g, 1e-15 * e);
  EXPECT_NEAR(hill.k, bulk + g / 3.0, 1e-15 * bulk);
  EXPECT_NEAR(hill.l, bulk - 2.0 * g / 3.0, 2e-15 * bulk);
  EXPECT_NEAR(hill.n, bulk + 4.0 * g / 3.0, 2e-15 * bulk);
}

TEST(TransverselyIsotropic, HillModuliAreInvertible) {
  test::RandomMaterials random(12);
  for (int i = 0; i < 2000; ++i) {
    const TransverselyIsotropic s = random.anyFiber();
    const HillModuli hill = hillModuli(s);
    const TransverselyIsotropic back = transverselyIsotropicFrom(hill);
    // Near the limit of admissibility the inverse subtracts n - 2 l v12 = E11 from a larger n.
    const double tolerance = 1e-14 * hill.n / s.e11 * std::max(1.0, s.e22 / s.e11);
    EXPECT_NEAR(back.e11 / s.e11, 1.0, tolerance);
    EXPECT_NEAR(back.e22 / s.e22, 1.0, tolerance);
    EXPECT_NEAR(back.v12, s.v12, 1e-15);
    EXPECT_NEAR(back.v23, s.v23, 2.0 * tolerance);
    EXPECT_EQ(back.g12, s.g12);
  }
}

TEST(TransverselyIsotropic, AdmissibleUntilThePlaneStrainBulkModulusDiverges) {
  TransverselyIsotropic s{1e10, 1e10, 0.3, 0.25, 4e9, 0.0, 0.0};
  s.v23 = 1.0 - 2.0 * s.v12 * s.v12 - 1e-9;
  EXPECT_TRUE(isAdmissible(s));
  s.v23 += 2e-9;
  EXPECT_FALSE(isAdmissible(s));
  s.v23 = -1.0;
  EXPECT_FALSE(isAdmissible(s));
}

}  // namespace
}  // namespace kx
