// SPDX-License-Identifier: BSD-3-Clause
#include "weave/cell/UnitCell.h"

#include <numeric>

#include <gtest/gtest.h>

#include "weave/cell/WeaveCases.h"

namespace kx {
namespace {

TEST(UnitCell, FractionsOfEveryVoxelSumToOneAndToTheCells) {
  for (const int harness : {1, 4, 5, 8}) {
    test::WeaveCase weave;
    weave.harness = harness;
    const UnitCell cell(weave.geometry(), {8, 10});
    std::array<double, kCellPhases> sums{};
    for (int i = 0; i < cell.shape().n1; ++i) {
      for (int j = 0; j < cell.shape().n2; ++j) {
        for (int k = 0; k < cell.shape().n3; ++k) {
          const auto voxel = cell.fractions(cell.column(i, j), k);
          EXPECT_NEAR(std::accumulate(voxel.begin(), voxel.end(), 0.0), 1.0, 1e-15);
          for (std::size_t r = 0; r < kCellPhases; ++r) {
            EXPECT_GE(voxel[r], 0.0);
            sums[r] += voxel[r] / static_cast<double>(cell.shape().voxels());
          }
        }
      }
    }
    // Columns are exact along the normal, so the whole differs by the slivers of 1e-9 at most.
    for (std::size_t r = 0; r < kCellPhases; ++r) {
      EXPECT_NEAR(sums[r], cell.phaseFractions()[r], 1e-9);
    }
  }
}

TEST(UnitCell, InterfacesAreNormalToTheSurfacesOfTheTows) {
  const test::WeaveCase weave;
  const WeaveGeometry geometry = weave.geometry();
  const UnitCell cell(geometry, {16, 12});
  constexpr double kStep = 1e-6;
  for (const int i : {1, 3, 14}) {
    for (const int j : {2, 13}) {
      const double x = (i + 0.5) / 16;
      const double y = (j + 0.5) / 16;
      const auto top = [&](const double x1, const double x2) {
        return geometry.column(x1, x2).fill.upper;
      };
      const double height = top(x, y) + geometry.thickness() / 2;
      const int k = static_cast<int>(height / cell.shape().h3);
      const WeaveColumn& column = cell.column(i, j);
      const Eigen::Vector3d normal(-(top(x + kStep, y) - top(x - kStep, y)) / (2 * kStep),
                                   -(top(x, y + kStep) - top(x, y - kStep)) / (2 * kStep),
                                   1.0);
      const Frame frame = cell.interfaceFrame(column, k);
      EXPECT_LT((frame.transpose() * frame - Frame::Identity()).norm(), 1e-14);
      const double floor = k * cell.shape().h3 - geometry.thickness() / 2;
      const auto isInside = [&](const double surface) {
        return surface > floor && surface < floor + cell.shape().h3;
      };
      if (isInside(column.fill.lower) || isInside(column.warp.lower) ||
          isInside(column.warp.upper)) {
        continue;  // a mean of several surfaces
      }
      EXPECT_LT((frame.row(2).transpose() - normal.normalized()).norm(), 1e-8);
    }
  }
}

TEST(UnitCell, FractionsOfTheFineGridAreWithinOnePerCent) {
  for (const int harness : {1, 4, 5, 8}) {
    test::WeaveCase weave;
    weave.harness = harness;
    const UnitCell cell(weave.geometry(), kFineGrid);
    EXPECT_NEAR(cell.phaseFractions()[kFill], 0.4, 0.004);
    EXPECT_NEAR(cell.phaseFractions()[kWarp], 0.4, 0.004);
  }
}

}  // namespace
}  // namespace kx
