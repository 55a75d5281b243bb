#include "fit/ConstituentSpace.h"

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
    EXPECT_EQ(at.matrix.*member, start.matrix.*member);
  }
  EXPECT_EQ(at.matrix.a22, start.matrix.a22);
}

TEST(ConstituentSpace, UnitStepIsAFactorForModuliAndThreeTenthsForRatios) {
  const Constituents start = carbonEpoxy();
  const Transverse space(start);
  const Transverse::Vector z = Transverse::Vector::Constant(0.1);
  const Constituents at = space.at(z.data());
  const double factor = std::exp(0.1);
  EXPECT_DOUBLE_EQ(at.fiber.e11, start.fiber.e11 * factor);
  EXPECT_DOUBLE_EQ(at.fiber.v12, start.fiber.v12 + 0.03);
  EXPECT_DOUBLE_EQ(at.fiber.g12, start.fiber.g12 * factor);
  EXPECT_DOUBLE_EQ(at.matrix.e22, start.matrix.e22 * factor);
  EXPECT_DOUBLE_EQ(at.matrix.v23, start.matrix.v23 + 0.03);
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
  const Isotropic space(carbonEpoxy());
  const Constituents low = space.at(space.lower().data());
  const Constituents high = space.at(space.upper().data());
  EXPECT_NEAR(low.fiber.e11 / 230e9, 1.0 / 5.0, 1e-15);
  EXPECT_NEAR(high.matrix.e11 / 3.5e9, 5.0, 1e-14);
  EXPECT_NEAR(low.fiber.v12, 0.01, 1e-15);
  EXPECT_NEAR(high.fiber.v23, 0.75, 1e-15);
  EXPECT_NEAR(high.matrix.v12, 0.48, 1e-15);
}

TEST(ConstituentSpace, BoundsWidenToHoldTheStart) {
  Constituents start = carbonEpoxy();
  start.fiber.v12 = -0.05;
  start.matrix = isotropic(3.5e9, 0.49, 5.7e-5);
  const Isotropic space(start);
  EXPECT_TRUE((space.lower().array() <= 0.0).all());
  EXPECT_TRUE((space.upper().array() >= 0.0).all());
  EXPECT_NEAR(space.at(space.upper().data()).matrix.v12, 0.49, 1e-15);
}

}  // namespace
}  // namespace kx
