// SPDX-License-Identifier: BSD-3-Clause
#include "weave/damage/ShearSoftening.h"

#include <gtest/gtest.h>

#include "support/ReferenceData.h"

namespace kx {
namespace {

const TransverselyIsotropic kFiber{230e9, 15e9, 0.2, 0.25, 20e9, -5e-7, 1e-5};
const TransverselyIsotropic kMatrix = isotropic(3.5e9, 0.35, 5.5e-5);

WeaveDescription weave(const int harness, const CellResolution& resolution) {
  WeaveDescription description;
  description.harness = harness;
  description.fillFraction = description.warpFraction = 0.4;
  description.fiberFraction = 0.7;
  description.resolution = resolution;
  return description;
}

TEST(ShearSoftening, PlyAndMatrixSoftenTogether) {
  for (const int harness : {1, 5}) {
    ThreadPool team(1);
    const auto pairs = shearSoftening(team, weave(harness, {6, 6}), kFiber, kMatrix);
    ASSERT_EQ(pairs.size(), 7U);
    EXPECT_EQ(pairs.front().composite, 1.0);
    EXPECT_EQ(pairs.front().matrix, 1.0);
    for (std::size_t i = 1; i < pairs.size(); ++i) {
      EXPECT_LT(pairs[i].composite, pairs[i - 1].composite);
      EXPECT_LT(pairs[i].matrix, pairs[i - 1].matrix);
      // The stiff fiber takes no part: the ply loses less than the matrix, but most of it.
      EXPECT_GT(pairs[i].composite, pairs[i].matrix);
    }
  }
}

TEST(ShearSoftening, QuadraticOfThePlainWeaveIsTheKnownOne) {
  // Coefficients of an independent voxel code, given to three digits, on a grid of its own.
  ThreadPool team(2);
  const auto pairs = shearSoftening(team, weave(1, {12, 12}), kFiber, kMatrix);
  const MatrixDegradation fit = fitMatrixDegradation(pairs);
  EXPECT_NEAR(fit[0], 0.007, 0.002);
  EXPECT_NEAR(fit[1], 0.695, 0.01);
  EXPECT_NEAR(fit[2], 0.297, 0.01);
}

}  // namespace
}  // namespace kx
