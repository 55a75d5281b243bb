// SPDX-License-Identifier: BSD-3-Clause
#include "weave/voxel/EffectiveStiffness.h"

#include <gtest/gtest.h>

#include "weave/voxel/TestCells.h"

namespace kx {
namespace {

TEST(EffectiveStiffness, OfLayersIsTheirExactMixture) {
  // Layers along axis 1: out-of-plane components are those with an index 1.
  MaterialField layers(GridShape{6, 4, 4, 0.1, 0.2, 0.05});
  test::addMaterial(layers, test::stiffTow(), warpFrame(0.3));
  test::addMaterial(layers, test::softSolid());
  for (std::size_t voxel = 0; voxel < layers.shape().voxels(); ++voxel) {
    layers.addVoxel(voxel / 16 < 2 ? 0 : 1);
  }
  const std::array<Eigen::Index, 3> out{k11, k12, k13};
  const std::array<Eigen::Index, 3> plane{k22, k33, k23};
  const auto block = [](const Matrix6& c, const auto& rows, const auto& columns) {
    Eigen::Matrix3d part;
    for (std::size_t i = 0; i < 3; ++i) {
      for (std::size_t j = 0; j < 3; ++j) {
        part(static_cast<Eigen::Index>(i), static_cast<Eigen::Index>(j)) = c(rows[i], columns[j]);
      }
    }
    return part;
  };
  Eigen::Matrix3d compliance = Eigen::Matrix3d::Zero();
  for (const auto& [material, share] : {std::pair{0, 2.0 / 6}, std::pair{1, 4.0 / 6}}) {
    compliance += share * block(layers.stiffness(material), out, out).inverse();
  }
  ThreadPool team(2);
  SolveSettings settings;
  settings.tolerance = 1e-10;
  const Matrix6 found = effectiveStiffness(layers, settings, team).stiffness;
  const Eigen::Matrix3d expected = compliance.inverse();
  EXPECT_LT((block(found, out, out) - expected).norm(), 1e-9 * expected.norm());
  EXPECT_LT((block(found, plane, out) - block(found, out, plane).transpose()).norm(),
            1e-9 * found.norm());
}

TEST(EffectiveStiffness, OfADisplacedCellIsThatOfTheWholeRepeat) {
  for (const int shift : {2, 3}) {
    GridShape small{4, 6, 4, 0.1, 0.12, 0.05};
    small.shift2 = shift;
    GridShape whole = small;
    whole.n1 = small.n1 * 6 / shift;  // until the displacements add up to n2
    whole.shift2 = 0;
    const auto filled = [&](const GridShape& shape) {
      MaterialField field(shape);
      test::addMaterial(field, test::softSolid());
      test::addMaterial(field, test::stiffTow(), fillFrame(0.3));
      test::addMaterial(field, test::stiffTow(), warpFrame(-0.2));
      for (int i = 0; i < shape.n1; ++i) {
        for (int j = 0; j < shape.n2; ++j) {
          const int x = i % small.n1;
          const int y = (j + 6 * 6 - i / small.n1 * shift) % 6;
          for (int k = 0; k < shape.n3; ++k) {
            field.addVoxel((x * 7 + y * 4 + k * 5 + (x * y) % 3) % 3);
          }
        }
      }
      return field;
    };
    ThreadPool team(1);
    SolveSettings settings;
    settings.tolerance = 1e-9;
    const auto a = effectiveStiffness(filled(small), settings, team);
    const auto b = effectiveStiffness(filled(whole), settings, team);
    EXPECT_LT((a.stiffness - b.stiffness).norm(), 1e-9 * b.stiffness.norm()) << shift;
    EXPECT_NEAR(a.iterations, b.iterations, 6);  // one per case, where rounding decides the last
  }
}

TEST(EffectiveStiffness, LiesBetweenReussAndVoigt) {
  const MaterialField cell = test::scattered(GridShape{8, 8, 6, 0.1, 0.1, 0.1});
  ThreadPool team(1);
  const Matrix6 found = effectiveStiffness(cell, {}, team).stiffness;
  const Matrix6 symmetric = (found + found.transpose()) / 2;
  const Matrix6 excess = cell.meanStiffness() - symmetric;
  EXPECT_TRUE(isPositiveDefinite((excess + excess.transpose()) / 2));
  EXPECT_TRUE(isPositiveDefinite(symmetric));
}

}  // namespace
}  // namespace kx
