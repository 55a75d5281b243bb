// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_CELL_COMPOSITEVOXEL_H
#define KX_WEAVE_CELL_COMPOSITEVOXEL_H

#include <array>
#include <cstddef>

#include "elastic/Rotation.h"
#include "elastic/Voigt.h"
#include "weave/cell/UnitCell.h"

namespace kx {

/// Stiffness [Pa] and thermal stress beta = C alpha [Pa/K] of a phase, composite axes.
struct PhaseStiffness {
  Matrix6 c = Matrix6::Zero();
  Vector6 beta = Vector6::Zero();
};

/// A voxel that several phases share, taken as a laminate of them with the normal of their
/// interface (the composite voxels of kabel2015): the in-plane strains and the stresses on the
/// layers' faces are common to all phases.
class CompositeVoxel {
 public:
  /// Phases with a fraction of 0 are left out; fractions sum to 1. The third axis of `interface` is
  /// the layers' normal.
  CompositeVoxel(const std::array<double, kCellPhases>& fractions,
                 const std::array<const PhaseStiffness*, kCellPhases>& phases,
                 const Frame& interface);

  /// Stiffness and thermal stress of the whole voxel.
  PhaseStiffness overall() const;

  /// Strain of a phase = localisation * voxel strain + thermalLocalisation * temperature.
  Matrix6 localisation(std::size_t phase) const;
  Vector6 thermalLocalisation(std::size_t phase) const;

 private:
  struct Layer {
    Eigen::Matrix3d compliance = Eigen::Matrix3d::Zero();  ///< inverse of the out-of-plane block
    Eigen::Matrix3d coupling = Eigen::Matrix3d::Zero();  ///< compliance * out-of-plane to in-plane
    Eigen::Vector3d free = Eigen::Vector3d::Zero();      ///< compliance * out-of-plane beta
  };

  std::array<double, kCellPhases> fractions_;
  std::array<const PhaseStiffness*, kCellPhases> phases_;
  Matrix6 toLayers_;     ///< strains from composite axes to those of the layers
  Matrix6 toComposite_;  ///< and back
  std::array<Layer, kCellPhases> layers_;
  Eigen::Matrix3d stiffening_ = Eigen::Matrix3d::Zero();  ///< inverse of the mean compliance
  Eigen::Matrix3d meanCoupling_ = Eigen::Matrix3d::Zero();
  Eigen::Vector3d meanFree_ = Eigen::Vector3d::Zero();
};

}  // namespace kx

#endif
