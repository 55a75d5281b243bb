// SPDX-License-Identifier: BSD-3-Clause
#include "weave/voxel/PairSolver.h"

#include <gtest/gtest.h>

#include "support/Bits.h"
#include "weave/voxel/TestCells.h"

namespace kx {
namespace {

using test::bitsOf;

struct Solution {
  PairField field;
  std::array<LaneReport, 2> reports;
};

Solution solve(const MaterialField& materials,
               const kernels::PairLoad& load,
               const double tolerance,
               const int threads = 1) {
  ThreadPool team(threads);
  PairSolver solver(std::make_shared<SpectralBasis>(materials.shape()));
  Solution solution{PairField(materials.shape()), {}};
  SolveSettings settings;
  settings.tolerance = tolerance;
  solution.reports = solver.solve(materials, load, {true, true}, solution.field, settings, team);
  return solution;
}

kernels::PairLoad strains(const std::size_t first, const std::size_t second) {
  kernels::PairLoad load;
  load.strain[first][0] = 1.0;
  load.strain[second][1] = 1.0;
  return load;
}

// Exact solution for layers of equal thickness normal to an axis: common in-plane strain, common
// traction. Here the displacement jump per layer follows from the tractions' balance.
Eigen::Vector3d tractionStrain(const Matrix6& a, const Matrix6& b, const Vector6& unit) {
  const std::array<Eigen::Index, 3> out{k33, k13, k23};
  Eigen::Matrix3d sum;
  Eigen::Vector3d difference;
  for (Eigen::Index i = 0; i < 3; ++i) {
    for (Eigen::Index j = 0; j < 3; ++j) {
      const auto r = out[static_cast<std::size_t>(i)];
      const auto c = out[static_cast<std::size_t>(j)];
      sum(i, j) = a(r, c) + b(r, c);
    }
    difference(i) = ((b - a) * unit)(out[static_cast<std::size_t>(i)]);
  }
  return sum.inverse() * difference;
}

TEST(PairSolver, SolvesALaminateExactly) {
  MaterialField layers(GridShape{4, 6, 8, 0.1, 0.2, 0.05});
  test::addMaterial(layers, test::stiffTow(), fillFrame(0.3));
  test::addMaterial(layers, test::softSolid());
  for (std::size_t voxel = 0; voxel < layers.shape().voxels(); ++voxel) {
    layers.addVoxel(voxel % 8 < 4 ? 0 : 1);
  }
  const Solution solution = solve(layers, strains(k11, k13), 1e-12);
  for (std::size_t lane = 0; lane < 2; ++lane) {
    Vector6 unit = Vector6::Zero();
    unit(lane == 0 ? k11 : k13) = 1.0;
    const Eigen::Vector3d jump = tractionStrain(layers.stiffness(0), layers.stiffness(1), unit);
    const auto slope = [&](const int component) {
      const double* const row = solution.field.row(1, 2, component);
      return (row[2 * 3 + static_cast<int>(lane)] - row[2 * 2 + static_cast<int>(lane)]) / 0.05;
    };
    EXPECT_NEAR(slope(2), jump(0), 1e-9);
    EXPECT_NEAR(slope(0), jump(1), 1e-9);
    EXPECT_NEAR(slope(1), jump(2), 1e-9);
  }
}

TEST(PairSolver, LeavesAHomogeneousCellAtRest) {
  MaterialField field(GridShape{6, 6, 4, 0.1, 0.1, 0.02});
  test::addMaterial(field, test::stiffTow(), fillFrame(0.2));
  for (std::size_t voxel = 0; voxel < field.shape().voxels(); ++voxel) {
    field.addVoxel(0);
  }
  kernels::PairLoad load = strains(k11, k13);
  load.temperature[1] = 1000.0;
  const Solution solution = solve(field, load, 1e-6);
  EXPECT_EQ(solution.reports[0].iterations, 0);
  EXPECT_EQ(solution.reports[1].iterations, 0);
  EXPECT_TRUE(solution.field.isZero());
}

TEST(PairSolver, HasTheSameBitsForAnyNumberOfThreads) {
  const MaterialField field = test::scattered(GridShape{20, 12, 6, 0.1, 0.1, 0.03});
  const Solution one = solve(field, strains(k22, k23), 1e-5, 1);
  for (const int threads : {2, 3, 5}) {
    const Solution several = solve(field, strains(k22, k23), 1e-5, threads);
    EXPECT_EQ(several.reports[0].iterations, one.reports[0].iterations);
    for (int i = 0; i < field.shape().n1; ++i) {
      EXPECT_EQ(bitsOf(one.field.plane(i), one.field.planeStride()),
                bitsOf(several.field.plane(i), several.field.planeStride()));
    }
  }
}

TEST(PairSolver, LanesDoNotDisturbEachOther) {
  // Lanes of very different size and speed of convergence: each as it is alone, to the tolerance.
  const MaterialField field = test::scattered(GridShape{8, 10, 6, 0.1, 0.1, 0.03});
  kernels::PairLoad load = strains(k11, k12);
  load.strain[k12][1] = 1e-3;
  const Solution together = solve(field, load, 1e-9);
  kernels::PairLoad alone;
  alone.strain[k12][0] = 1.0;
  const Solution single = solve(field, alone, 1e-9);
  double difference = 0.0;
  double size = 0.0;
  for (int i = 0; i < field.shape().n1; ++i) {
    for (std::size_t t = 0; t < single.field.planeStride(); t += 2) {
      const double a = together.field.plane(i)[t + 1] * 1e3;
      const double b = single.field.plane(i)[t];
      difference += (a - b) * (a - b);
      size += b * b;
    }
  }
  EXPECT_LT(std::sqrt(difference / size), 1e-7);
}

TEST(PairSolver, SaysWhenTheIterationsWereNotEnough) {
  const MaterialField field = test::scattered(GridShape{8, 10, 6, 0.1, 0.1, 0.03});
  ThreadPool team(1);
  PairSolver solver(std::make_shared<SpectralBasis>(field.shape()));
  PairField solution(field.shape());
  const auto few = solver.solve(field, strains(k11, k33), {true, true}, solution, {1e-6, 3}, team);
  EXPECT_FALSE(few[0].isConverged);
  EXPECT_FALSE(few[1].isConverged);
  const auto all = solver.solve(field, strains(k11, k33), {true, true}, solution, {}, team);
  EXPECT_TRUE(all[0].isConverged);
  EXPECT_TRUE(all[1].isConverged);
}

TEST(PairSolver, StartsFromAGivenSolution) {
  const MaterialField field = test::scattered(GridShape{8, 10, 6, 0.1, 0.1, 0.03});
  Solution first = solve(field, strains(k11, k33), 1e-6);
  ThreadPool team(1);
  PairSolver solver(std::make_shared<SpectralBasis>(field.shape()));
  SolveSettings settings;
  settings.tolerance = 1e-5;
  const auto again =
      solver.solve(field, strains(k11, k33), {true, true}, first.field, settings, team);
  EXPECT_EQ(again[0].iterations, 0);
  EXPECT_EQ(again[1].iterations, 0);
}

}  // namespace
}  // namespace kx
