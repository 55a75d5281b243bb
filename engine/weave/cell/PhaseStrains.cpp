#include "weave/cell/PhaseStrains.h"

namespace kx {

PhaseStrains::PhaseStrains(const CellMaterials& materials,
                           const CellFields& fields,
                           const std::size_t cases)
    : materials_(materials),
      fields_(fields),
      cases_(cases),
      voxels_(static_cast<std::size_t>(materials.cell().shape().n2) *
              static_cast<std::size_t>(materials.cell().shape().n3)),
      strains_(6 * cases * voxels_) {}

void PhaseStrains::load(const int i) {
  plane_ = i;
  for (std::size_t loadCase = 0; loadCase < cases_; ++loadCase) {
    planeStrains(fields_, loadCase, i, strains_.data() + 6 * loadCase * voxels_);
  }
}

CaseStrains PhaseStrains::voxelStrains(const int j, const int k) const {
  const auto n3 = static_cast<std::size_t>(materials_.cell().shape().n3);
  const double* value =
      strains_.data() + static_cast<std::size_t>(j) * n3 + static_cast<std::size_t>(k);
  CaseStrains strains(6, static_cast<Eigen::Index>(cases_));
  for (Eigen::Index loadCase = 0; loadCase < strains.cols(); ++loadCase) {
    for (Eigen::Index component = 0; component < 6; ++component) {
      strains(component, loadCase) = *value;
      value += voxels_;
    }
  }
  return strains;
}

CaseStrains PhaseStrains::localised(const CompositeVoxel& voxel,
                                    const std::size_t phase,
                                    const CaseStrains& strains) const {
  CaseStrains local = voxel.localisation(phase) * strains;
  if (cases_ == kLoadCases) {
    local.col(static_cast<Eigen::Index>(kThermalCase)) += voxel.thermalLocalisation(phase);
  }
  return local;
}

}  // namespace kx
