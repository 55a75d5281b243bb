// SPDX-License-Identifier: BSD-3-Clause
#include "elastic/Properties.h"

#include <limits>

#include <gtest/gtest.h>

#include "elastic/Voigt.h"
#include "support/RandomMaterials.h"

namespace kx {
namespace {

Properties orthotropicLamina() {
  return {6.1e10, 6.0e10, 8.9e9, 0.05, 0.4, 0.41, 4.4e9, 3.2e9, 3.1e9, 3e-6, 3.1e-6, 5e-5};
}

TEST(Properties, ArrayOrderIsModuliRatiosShearExpansion) {
  const std::array<double, kPropertyCount> array{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
  const Properties p = propertiesFrom(array.data());
  EXPECT_EQ(p.e11, 1);
  EXPECT_EQ(p.e33, 3);
  EXPECT_EQ(p.v12, 4);
  EXPECT_EQ(p.v23, 6);
  EXPECT_EQ(p.g12, 7);
  EXPECT_EQ(p.g23, 9);
  EXPECT_EQ(p.a11, 10);
  EXPECT_EQ(p.a33, 12);
  std::array<double, kPropertyCount> back{};
  copyTo(p, back.data());
  EXPECT_EQ(back, array);
}

TEST(Properties, NonFiniteNumbersAreInadmissible) {
  for (const auto member : kPropertyOrder<double>) {
    for (const double bad :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
      Properties p = orthotropicLamina();
      p.*member = bad;
      EXPECT_FALSE(isFinite(p));
      EXPECT_FALSE(isAdmissible(p));
    }
  }
}

TEST(Properties, ModuliMustBePositive) {
  for (const auto member : {&Properties::e11,
                            &Properties::e22,
                            &Properties::e33,
                            &Properties::g12,
                            &Properties::g13,
                            &Properties::g23}) {
    Properties p = orthotropicLamina();
    ASSERT_TRUE(isAdmissible(p));
    p.*member = 0.0;
    EXPECT_FALSE(isAdmissible(p));
    p.*member = -1e9;
    EXPECT_FALSE(isAdmissible(p));
  }
}

TEST(Properties, AdmissibleMeansPositiveDefiniteCompliance) {
  test::RandomMaterials random(11);
  int admissible = 0;
  for (int i = 0; i < 5000; ++i) {
    Properties p = orthotropicLamina();
    p.e22 = random.logUniform(1e9, 1e11);
    p.v12 = random.uniform(-1.5, 1.5);
    p.v13 = random.uniform(-1.5, 2.5);
    p.v23 = random.uniform(-1.5, 1.5);
    const bool positive = compliance(p).topLeftCorner<3, 3>().llt().info() == Eigen::Success;
    EXPECT_EQ(isAdmissible(p), positive) << p.e22 << ' ' << p.v12 << ' ' << p.v13 << ' ' << p.v23;
    admissible += positive ? 1 : 0;
  }
  EXPECT_GT(admissible, 500);  // both outcomes were exercised
  EXPECT_LT(admissible, 4500);
}

}  // namespace
}  // namespace kx
