// SPDX-License-Identifier: BSD-3-Clause
#include "weave/voxel/EffectiveStiffness.h"

#include <array>
#include <vector>

namespace kx {

namespace {

// Sum of the stresses of voxel plane i under a unit strain of component `unit`.
Vector6 planeStress(const MaterialField& materials,
                    const PairField& field,
                    const std::ptrdiff_t lane,
                    const Eigen::Index unit,
                    const int i) {
  const GridShape& shape = materials.shape();
  const std::ptrdiff_t count = std::ptrdiff_t{shape.n2} * shape.n3;
  std::vector<double> strains(static_cast<std::size_t>(kernels::kStrainRows * count));
  planeGradients(field, lane, i, strains.data());
  Vector6 sum = Vector6::Zero();
  materials.forEachRun(i, [&](const int j, const int begin, const int end, const auto material) {
    Vector6 strain = Vector6::Zero();
    strain(unit) = end - begin;
    for (Eigen::Index c = 0; c < 6; ++c) {
      const double* const row = strains.data() + c * count + std::ptrdiff_t{j} * shape.n3;
      for (int k = begin; k < end; ++k) {
        strain(c) += row[k];
      }
    }
    sum += materials.stiffness(material) * strain;
  });
  return sum;
}

}  // namespace

EffectiveStiffness effectiveStiffness(const MaterialField& materials,
                                      const SolveSettings& settings,
                                      ThreadPool& team) {
  const GridShape& shape = materials.shape();
  PairSolver solver(std::make_shared<SpectralBasis>(shape));
  PairField field(shape);
  EffectiveStiffness result;
  for (std::size_t first = 0; first < 6; first += 2) {
    kernels::PairLoad load;
    load.strain[first][0] = load.strain[first + 1][1] = 1.0;
    field.clear();
    const auto reports = solver.solve(materials, load, {true, true}, field, settings, team);
    for (std::size_t lane = 0; lane < 2; ++lane) {
      const auto unit = static_cast<Eigen::Index>(first + lane);
      std::vector<Vector6> planes(static_cast<std::size_t>(shape.n1));
      team.forEach(planes.size(), [&](const std::size_t i) {
        planes[i] = planeStress(
            materials, field, static_cast<std::ptrdiff_t>(lane), unit, static_cast<int>(i));
      });
      for (const Vector6& plane : planes) {
        result.stiffness.col(unit) += plane;
      }
      result.iterations += reports[lane].iterations;
    }
  }
  result.stiffness /= static_cast<double>(shape.voxels());
  return result;
}

}  // namespace kx
