// SPDX-License-Identifier: BSD-3-Clause
#include "weave/cell/PhaseStrains.h"

#include <array>
#include <cmath>

namespace kx {

PhaseStrains::PhaseStrains(const CellMaterials& materials,
                           const CellFields& fields,
                           const std::size_t cases)
    : materials_(materials),
      fields_(fields),
      cases_(cases),
      voxels_(static_cast<std::size_t>(materials.cell().shape().n2) *
              static_cast<std::size_t>(materials.cell().shape().n3)),
      strains_(kernels::kStrainRows * cases * voxels_) {}

void PhaseStrains::load(const int i) {
  plane_ = i;
  for (std::size_t loadCase = 0; loadCase < cases_; ++loadCase) {
    planeStrains(fields_, loadCase, i, strains_.data() + kernels::kStrainRows * loadCase * voxels_);
  }
}

VoxelStrains PhaseStrains::voxelStrains(const int j, const int k) const {
  static const double kRootShare = std::sqrt(kernels::kBendingShare);
  constexpr std::array<Eigen::Index, 3> kBent{k11, k22, k12};
  const auto cases = static_cast<Eigen::Index>(cases_);
  const double* value = strains_.data() + std::ptrdiff_t{j} * materials_.cell().shape().n3 + k;
  VoxelStrains strains{CaseStrains(6, cases), CaseStrains::Zero(6, cases)};
  for (Eigen::Index loadCase = 0; loadCase < cases; ++loadCase) {
    for (Eigen::Index component = 0; component < 6; ++component, value += voxels_) {
      strains.mean(component, loadCase) = *value;
    }
    for (const Eigen::Index component : kBent) {
      strains.bending(component, loadCase) = kRootShare * *value;
      value += voxels_;
    }
  }
  return strains;
}

VoxelStrains PhaseStrains::localised(const CompositeVoxel& voxel,
                                     const std::size_t phase,
                                     const VoxelStrains& strains) const {
  const Matrix6 localisation = voxel.localisation(phase);
  VoxelStrains local{localisation * strains.mean, localisation * strains.bending};
  if (cases_ == kLoadCases) {
    local.mean.col(static_cast<Eigen::Index>(kThermalCase)) += voxel.thermalLocalisation(phase);
  }
  return local;
}

}  // namespace kx
