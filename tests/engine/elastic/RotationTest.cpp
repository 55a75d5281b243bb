// SPDX-License-Identifier: BSD-3-Clause
#include "elastic/Rotation.h"

#include <cmath>

#include <gtest/gtest.h>

#include "support/RandomMaterials.h"

namespace kx {
namespace {

constexpr double kRounding = 1e-13;

Eigen::Matrix3d tensor(const Vector6& strain) {
  Eigen::Matrix3d t;
  t << strain(k11), strain(k12) / 2, strain(k13) / 2,  //
      strain(k12) / 2, strain(k22), strain(k23) / 2,   //
      strain(k13) / 2, strain(k23) / 2, strain(k33);
  return t;
}

TransverselyIsotropic tow() {
  return {1.4e11, 9e9, 0.26, 0.38, 5.5e9, 1e-7, 3e-5};
}

TEST(Rotation, StrainTransformActsLikeTheTensor) {
  Vector6 strain;
  strain << 1.0, -2.0, 0.5, 0.3, 0.7, -1.1;
  for (const Frame& frame : {fillFrame(0.3), warpFrame(-0.2)}) {
    const Eigen::Matrix3d expected = frame * tensor(strain) * frame.transpose();
    EXPECT_TRUE(tensor(strainTransform(frame) * strain).isApprox(expected, kRounding));
  }
}

TEST(Rotation, FramesAreRightHandedAndFollowTheTow) {
  const double slope = 0.4;
  for (const Frame& frame : {fillFrame(slope), warpFrame(slope)}) {
    EXPECT_TRUE((frame * frame.transpose()).isApprox(Frame::Identity(), kRounding));
    EXPECT_NEAR(frame.determinant(), 1.0, kRounding);
  }
  EXPECT_NEAR(fillFrame(slope)(0, 2) / fillFrame(slope)(0, 0), slope, kRounding);
  EXPECT_NEAR(warpFrame(slope)(0, 2) / warpFrame(slope)(0, 1), slope, kRounding);
}

TEST(Rotation, LevelFillKeepsItsStiffness) {
  const Matrix6 c = stiffness(tow());
  EXPECT_TRUE(rotateStiffness(c, strainTransform(fillFrame(0.0))).isApprox(c, kRounding));
}

TEST(Rotation, LevelWarpSwapsOneAndTwo) {
  const TransverselyIsotropic t = tow();
  const Matrix6 c = rotateStiffness(stiffness(t), strainTransform(warpFrame(0.0)));
  const Properties p = propertiesFromStiffness<double>(c, expansion(properties(t)));
  EXPECT_NEAR(p.e22 / t.e11, 1.0, kRounding);
  EXPECT_NEAR(p.e11 / t.e22, 1.0, kRounding);
  EXPECT_NEAR(p.v23, t.v12, kRounding);
  EXPECT_NEAR(p.g23 / t.g12, 1.0, kRounding);
  EXPECT_NEAR(p.g13 / properties(t).g23, 1.0, kRounding);
}

TEST(Rotation, WorkIsTheSameInBothAxes) {
  Vector6 strain;
  strain << 1.0, -2.0, 0.5, 0.3, 0.7, -1.1;
  const Matrix6 local = stiffness(tow());
  for (const Frame& frame : {fillFrame(0.3), warpFrame(-0.2)}) {
    const Matrix6 transform = strainTransform(frame);
    const Vector6 localStrain = transform * strain;
    const Vector6 stress = rotateStress(local * localStrain, transform);
    EXPECT_NEAR(stress.dot(strain) / localStrain.dot(local * localStrain), 1.0, kRounding);
    EXPECT_TRUE(stress.isApprox(rotateStiffness(local, transform) * strain, kRounding));
  }
}

TEST(Rotation, IsotropicStiffnessDoesNotSeeTheAxes) {
  const Matrix6 c = stiffness(isotropic(3.5e9, 0.35, 5e-5));
  EXPECT_TRUE(rotateStiffness(c, strainTransform(warpFrame(0.4))).isApprox(c, kRounding));
}

TEST(Rotation, TransposedFrameInvertsTheTransform) {
  const Frame frame = warpFrame(0.3);
  const Matrix6 product = strainTransform(frame.transpose()) * strainTransform(frame);
  EXPECT_TRUE(product.isApprox(Matrix6::Identity(), kRounding));
}

}  // namespace
}  // namespace kx
