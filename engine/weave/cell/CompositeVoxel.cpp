// SPDX-License-Identifier: BSD-3-Clause
#include "weave/cell/CompositeVoxel.h"

namespace kx {

namespace {

using Eigen::Index;
constexpr std::array<Index, 3> kOut{k33, k13, k23};    // strains that differ between the layers
constexpr std::array<Index, 3> kPlane{k11, k22, k12};  // strains that they share

Eigen::Matrix3d block(const Matrix6& c,
                      const std::array<Index, 3>& rows,
                      const std::array<Index, 3>& columns) {
  Eigen::Matrix3d part;
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) {
      part(static_cast<Index>(i), static_cast<Index>(j)) = c(rows[i], columns[j]);
    }
  }
  return part;
}

Eigen::Vector3d outOfPlane(const Vector6& v) {
  return {v(k33), v(k13), v(k23)};
}

}  // namespace

CompositeVoxel::CompositeVoxel(const std::array<double, kCellPhases>& fractions,
                               const std::array<const PhaseStiffness*, kCellPhases>& phases,
                               const Frame& interface)
    : fractions_(fractions),
      phases_(phases),
      toLayers_(strainTransform(interface)),
      toComposite_(strainTransform(interface.transpose())) {
  Eigen::Matrix3d meanCompliance = Eigen::Matrix3d::Zero();
  for (std::size_t r = 0; r < kCellPhases; ++r) {
    if (fractions_[r] == 0.0) {
      continue;
    }
    Layer& layer = layers_[r];
    const Matrix6 c = rotateStiffness(phases_[r]->c, toComposite_);
    layer.compliance = block(c, kOut, kOut).inverse();
    layer.coupling = layer.compliance * block(c, kOut, kPlane);
    layer.free = layer.compliance * outOfPlane(rotateStress(phases_[r]->beta, toComposite_));
    meanCompliance += fractions_[r] * layer.compliance;
    meanCoupling_ += fractions_[r] * layer.coupling;
    meanFree_ += fractions_[r] * layer.free;
  }
  stiffening_ = meanCompliance.inverse();
}

Matrix6 CompositeVoxel::localisation(const std::size_t phase) const {
  const Layer& layer = layers_[phase];
  const Eigen::Matrix3d out = layer.compliance * stiffening_;
  const Eigen::Matrix3d plane = out * meanCoupling_ - layer.coupling;
  Matrix6 strain = Matrix6::Zero();
  for (std::size_t i = 0; i < 3; ++i) {
    strain(kPlane[i], kPlane[i]) = 1.0;
    for (std::size_t j = 0; j < 3; ++j) {
      strain(kOut[i], kOut[j]) = out(static_cast<Index>(i), static_cast<Index>(j));
      strain(kOut[i], kPlane[j]) = plane(static_cast<Index>(i), static_cast<Index>(j));
    }
  }
  return toComposite_ * strain * toLayers_;
}

Vector6 CompositeVoxel::thermalLocalisation(const std::size_t phase) const {
  const Layer& layer = layers_[phase];
  const Eigen::Vector3d out = layer.free - layer.compliance * (stiffening_ * meanFree_);
  Vector6 strain = Vector6::Zero();
  for (std::size_t i = 0; i < 3; ++i) {
    strain(kOut[i]) = out(static_cast<Index>(i));
  }
  return toComposite_ * strain;
}

PhaseStiffness CompositeVoxel::overall() const {
  PhaseStiffness mean;
  for (std::size_t r = 0; r < kCellPhases; ++r) {
    if (fractions_[r] == 0.0) {
      continue;
    }
    const PhaseStiffness& phase = *phases_[r];
    mean.c += fractions_[r] * (phase.c * localisation(r));
    mean.beta += fractions_[r] * (phase.beta - phase.c * thermalLocalisation(r));
  }
  return mean;
}

}  // namespace kx
