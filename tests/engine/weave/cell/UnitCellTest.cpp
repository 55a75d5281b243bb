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

TEST(UnitCell, FractionsOfTheDefaultGridsAreWithinOnePerCent) {
  for (const int harness : {1, 4, 5, 8}) {
    test::WeaveCase weave;
    weave.harness = harness;
    const UnitCell cell(weave.geometry(), defaultResolution(weave.geometry().pattern().tows()));
    EXPECT_NEAR(cell.phaseFractions()[kFill], 0.4, 0.004);
    EXPECT_NEAR(cell.phaseFractions()[kWarp], 0.4, 0.004);
  }
}

}  // namespace
}  // namespace kx
