// SPDX-License-Identifier: BSD-3-Clause
#include "weave/voxel/MaterialField.h"

#include <gtest/gtest.h>

#include "weave/voxel/TestCells.h"

namespace kx {
namespace {

TEST(MaterialField, GroupsEqualNeighboursOfARowIntoRuns) {
  MaterialField field(GridShape{1, 2, 4});
  test::addMaterial(field, test::softSolid());
  test::addMaterial(field, test::stiffTow());
  for (const int material : {0, 1, 1, 0, 0, 0, 0, 0}) {
    field.addVoxel(material);
  }
  const std::int32_t* const rows = field.rowRuns(0);
  ASSERT_EQ(rows[1] - rows[0], 3);
  ASSERT_EQ(rows[2] - rows[1], 1);
  EXPECT_EQ(field.runs()[1].begin, 1);
  EXPECT_EQ(field.runs()[1].material, 1);
  EXPECT_EQ(field.runs()[2].begin, 3);
}

TEST(MaterialField, MeansAreWeightedWithTheVoxels) {
  MaterialField field(GridShape{1, 1, 4});
  test::addMaterial(field, test::softSolid());
  test::addMaterial(field, test::stiffTow());
  for (const int material : {0, 1, 1, 1}) {
    field.addVoxel(material);
  }
  const Matrix6 expected = 0.25 * stiffness(test::softSolid()) + 0.75 * stiffness(test::stiffTow());
  EXPECT_LT((field.meanStiffness() - expected).norm(), 1e-12 * expected.norm());
}

TEST(MaterialField, GivesMaterialsBack) {
  MaterialField field(GridShape{1, 1, 2});
  const std::int32_t tow = test::addMaterial(field, test::stiffTow(), fillFrame(0.3));
  const Matrix6 turn = strainTransform(fillFrame(0.3));
  const Matrix6 expected = rotateStiffness(stiffness(test::stiffTow()), turn);
  EXPECT_LT((field.stiffness(tow) - expected).norm(), 1e-15 * expected.norm());
}

}  // namespace
}  // namespace kx
