// SPDX-License-Identifier: BSD-3-Clause
#include "fit/ConstituentSpace.h"

#include <cmath>

#include <gtest/gtest.h>

namespace kx {
namespace {

using Isotropic = ConstituentSpace<MatrixSymmetry::isotropic>;
using Transverse = ConstituentSpace<MatrixSymmetry::transverselyIsotropic>;

Constituents carbonEpoxy() {
  return {{230e9, 15e9, 0.2, 0.25, 20e9, -6e-7, 1.2e-5}, isotropic(3.5e9, 0.35, 5.7e-5)};
}

TEST(ConstituentSpace, OriginIsTheStart) {
  const Constituents start = carbonEpoxy();
  const Constituents at = Isotropic(start).at(Isotropic::Vector::Zero().eval().data());
  for (const auto member : kElasticMembers<double>) {
    EXPECT_EQ(at.fiber.*member, start.fiber.*member);
    EXPECT_DOUBLE_EQ(at.matrix.*member, start.matrix.*member);
  }
  EXPECT_EQ(at.matrix.a22, start.matrix.a22);
}

TEST(ConstituentSpace, UnitStepIsAWidth) {
  const Constituents start = carbonEpoxy();
  const Transverse space(start);
  const Transverse::Vector z = Transverse::Vector::Constant(0.5);
  const Constituents at = space.at(z.data());
  EXPECT_DOUBLE_EQ(at.fiber.e11, start.fiber.e11 * std::exp(0.025));
  EXPECT_DOUBLE_EQ(at.fiber.v12, start.fiber.v12 + 0.04);
  EXPECT_DOUBLE_EQ(at.fiber.g12, start.fiber.g12 * std::exp(0.20));
  EXPECT_DOUBLE_EQ(at.matrix.e22, start.matrix.e22 * std::exp(0.175));
  EXPECT_DOUBLE_EQ(at.matrix.v23, start.matrix.v23 + 0.03);
}

TEST(ConstituentSpace, IsotropicMatrixMovesInBulkAndShearModulus) {
  const Constituents start = carbonEpoxy();
  Isotropic::Vector z = Isotropic::Vector::Zero();
  z.tail<2>() << 1.0, -1.0;
  const auto m = Isotropic(start).at(z.data()).matrix;
  EXPECT_DOUBLE_EQ(bulkModulus(m.e11, m.v12), bulkModulus(3.5e9, 0.35) * std::exp(0.25));
  EXPECT_DOUBLE_EQ(m.g12, shearModulus(3.5e9, 0.35) * std::exp(-0.35));
}

TEST(ConstituentSpace, FiberThatIsIsotropicAsFarAsItIsRoundedHasItsOwnWidths) {
  Constituents glass = carbonEpoxy();
  glass.fiber = {73e9, 73e9, 0.22, 0.22, 30e9, 5e-6, 5e-6};  // 29.92 GPa, rounded
  EXPECT_EQ(Isotropic(glass).unknowns()[1].width, 0.12);
  glass.fiber.g12 = 28e9;
  EXPECT_EQ(Isotropic(glass).unknowns()[1].width, 0.40);
}

TEST(ConstituentSpace, CoordinatesLeadBack) {
  const Constituents start = carbonEpoxy();
  const Isotropic space(start);
  Isotropic::Vector z;
  z << 0.1, -0.2, 0.1, 0.3, 0.2, 0.123, -0.321;
  EXPECT_LT((space.coordinatesOf(space.at(z.data())) - z).norm(), 1e-13);
}

TEST(ConstituentSpace, IsotropicMatrixStaysIsotropicToTheLastBit) {
  const Isotropic space(carbonEpoxy());
  Isotropic::Vector z;
  z << 0.1, -0.2, 0.1, 0.3, 0.2, 0.123, -0.321;
  const TransverselyIsotropic m = space.at(z.data()).matrix;
  EXPECT_EQ(m.e11, m.e22);
  EXPECT_EQ(m.v12, m.v23);
  EXPECT_EQ(m.g12, m.e11 / (2.0 * (1.0 + m.v12)));
}

TEST(ConstituentSpace, BoundsAreFactorsAndAbsoluteRatios) {
  const Transverse space(carbonEpoxy());
  const Constituents low = space.at(space.lower().data());
  const Constituents high = space.at(space.upper().data());
  EXPECT_NEAR(low.fiber.e11 / 230e9, 1.0 / 5.0, 1e-14);
  EXPECT_NEAR(high.matrix.e11 / 3.5e9, 5.0, 1e-14);
  EXPECT_NEAR(low.fiber.v12, 0.01, 1e-15);
  EXPECT_NEAR(high.fiber.v23, 0.75, 1e-15);
  EXPECT_NEAR(high.matrix.v23, 0.60, 1e-15);
}

TEST(ConstituentSpace, HoldsNoIsotropicMatrixBeyondItsRatios) {
  const Isotropic space(carbonEpoxy());
  Constituents materials = carbonEpoxy();
  EXPECT_TRUE(space.holds(materials));
  materials.matrix = isotropic(3.5e9, 0.485, 5.7e-5);
  EXPECT_FALSE(space.holds(materials));
  EXPECT_TRUE(space.isAtBound(5, materials));
  materials.matrix = isotropic(3.5e9, 0.04, 5.7e-5);
  EXPECT_FALSE(space.holds(materials));
}

TEST(ConstituentSpace, EveryRatioIsWithinTheBoxOfBulkAndShearModulus) {
  const Isotropic space(carbonEpoxy());
  for (const double ratio : {0.05, 0.48}) {
    for (const double shear : {1.0 / 5.0, 5.0}) {
      Constituents materials = carbonEpoxy();
      const double e = 2.0 * (1.0 + ratio) * shear * shearModulus(3.5e9, 0.35);
      materials.matrix = isotropic(e, ratio, 5.7e-5);
      const auto z = space.coordinatesOf(materials);
      EXPECT_GE(z(5), space.lower()(5) - 1e-9);
      EXPECT_LE(z(5), space.upper()(5) + 1e-9);
    }
  }
}

TEST(ConstituentSpace, BoundsWidenToHoldTheStart) {
  Constituents start = carbonEpoxy();
  start.fiber.v12 = -0.05;
  start.matrix = isotropic(3.5e9, 0.49, 5.7e-5);
  const Isotropic space(start);
  EXPECT_TRUE((space.lower().array() <= 0.0).all());
  EXPECT_TRUE((space.upper().array() >= 0.0).all());
  EXPECT_TRUE(space.holds(start));
}

}  // namespace
}  // namespace kx
