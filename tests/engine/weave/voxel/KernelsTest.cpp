// SPDX-License-Identifier: BSD-3-Clause
#include "weave/voxel/Kernels.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "weave/voxel/PairField.h"
#include "weave/voxel/TestCells.h"

namespace kx {
namespace {

constexpr double kRounding = 1e-13;  // relative to the largest number of the result

std::vector<double> waves(const std::size_t count, const double pace) {
  std::vector<double> values(count);
  for (std::size_t i = 0; i < count; ++i) {
    values[i] = std::sin(pace * static_cast<double>(i));
  }
  return values;
}

double largestDifference(const std::vector<double>& a, const std::vector<double>& b) {
  double largest = 0.0;
  double size = 0.0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    largest = std::max(largest, std::abs(a[i] - b[i]));
    size = std::max(size, std::abs(b[i]));
  }
  return largest / size;
}

std::vector<double> planeForces(const kernels::Table& table, const MaterialField& field) {
  const PairField layout(field.shape());
  const std::vector<double> nodes = waves(2 * layout.planeStride(), 0.37);
  std::vector<double> forces(2 * layout.planeStride());
  std::vector<double> scratch(static_cast<std::size_t>(kernels::planeScratch(field.shape().n3)));
  kernels::PairLoad load;
  load.strain[3][0] = 0.5;
  load.temperature[1] = 100.0;
  kernels::PlaneJob job;
  job.n2 = field.shape().n2;
  job.n3 = field.shape().n3;
  job.scale[0] = 0.25 / field.shape().h1;
  job.scale[1] = 0.25 / field.shape().h2;
  job.scale[2] = 0.25 / field.shape().h3;
  job.nearNodes = nodes.data();
  job.farNodes = nodes.data() + layout.planeStride();
  job.componentStride = static_cast<std::int64_t>(layout.componentStride());
  job.rowRuns = field.rowRuns(0);
  job.runs = field.runs();
  job.stiffness = field.stiffnessData();
  job.nearForce = forces.data();
  job.farForce = forces.data() + layout.planeStride();
  job.load = &load;
  job.thermalStress = field.thermalStressData();
  job.scratch = scratch.data();
  table.voxelPlane(job);
  return forces;
}

TEST(Kernels, AgreeOnThePlaneForcesToRounding) {
  const kernels::Table* tables[3] = {};
  const int count = kernels::available(tables);
  for (const int n3 : {2, 6, 10, 16}) {
    const MaterialField field = test::scattered(GridShape{2, 5, n3, 0.1, 0.2, 0.05});
    const std::vector<double> expected = planeForces(*tables[0], field);
    for (int t = 1; t < count; ++t) {
      EXPECT_LT(largestDifference(planeForces(*tables[t], field), expected), kRounding) << n3;
    }
  }
}

TEST(Kernels, DotSumsTheLanesApart) {
  const std::vector<double> a = waves(28, 0.3);
  const std::vector<double> b = waves(28, 0.7);
  double expected[2] = {};
  for (std::size_t i = 0; i < a.size(); ++i) {
    expected[i % 2] += a[i] * b[i];
  }
  const kernels::Table* tables[3] = {};
  const int count = kernels::available(tables);
  for (int t = 0; t < count; ++t) {
    double sums[2] = {};
    tables[t]->dot(28, a.data(), b.data(), sums);
    EXPECT_NEAR(sums[0], expected[0], kRounding);
    EXPECT_NEAR(sums[1], expected[1], kRounding);
  }
}

TEST(Kernels, AdvanceStepsBeforeItTurns) {
  const kernels::Table* tables[3] = {};
  const int count = kernels::available(tables);
  for (int t = 0; t < count; ++t) {
    const std::vector<double> descent{1, 2, 3, 4};
    std::vector<double> direction{10, 20, 30, 40};
    std::vector<double> solution{0, 0, 0, 1};
    const double step[2] = {0.5, 2.0};
    const double turn[2] = {1.0, 0.0};
    tables[t]->advance(4, step, turn, descent.data(), direction.data(), solution.data());
    EXPECT_EQ(solution, (std::vector<double>{5, 40, 15, 81}));
    EXPECT_EQ(direction, (std::vector<double>{11, 2, 33, 4}));
  }
}

TEST(Kernels, RigidMotionMeetsNoForce) {
  // Equal displacements everywhere strain nothing.
  const MaterialField field = test::scattered(GridShape{2, 4, 6, 0.1, 0.2, 0.05});
  const PairField layout(field.shape());
  std::vector<double> nodes(2 * layout.planeStride(), 0.75);
  std::vector<double> forces(2 * layout.planeStride());
  std::vector<double> scratch(static_cast<std::size_t>(kernels::planeScratch(6)));
  kernels::PlaneJob job;
  job.n2 = 4;
  job.n3 = 6;
  std::fill_n(job.scale, 3, 1.0);
  job.nearNodes = nodes.data();
  job.farNodes = nodes.data() + layout.planeStride();
  job.componentStride = static_cast<std::int64_t>(layout.componentStride());
  job.rowRuns = field.rowRuns(0);
  job.runs = field.runs();
  job.stiffness = field.stiffnessData();
  job.nearForce = forces.data();
  job.farForce = forces.data() + layout.planeStride();
  job.scratch = scratch.data();
  kernels::best().voxelPlane(job);
  for (const double force : forces) {
    EXPECT_EQ(force, 0.0);
  }
}

}  // namespace
}  // namespace kx
