// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_VOXEL_MATERIALFIELD_H
#define KX_WEAVE_VOXEL_MATERIALFIELD_H

#include <cstdint>
#include <vector>

#include "elastic/Voigt.h"
#include "weave/voxel/GridShape.h"
#include "weave/voxel/Kernels.h"

namespace kx {

/// Stiffness and thermal stress of every voxel: a list of materials, and the runs of voxels along
/// axis 3 that share one.
class MaterialField {
 public:
  explicit MaterialField(const GridShape& shape);

  /// Adds a material [Pa, Pa/K] and returns its number.
  std::int32_t addMaterial(const Matrix6& stiffness, const Vector6& thermalStress);

  /// Adds the next voxel, in the order of the voxel numbers.
  void addVoxel(std::int32_t material);

  const GridShape& shape() const { return shape_; }
  std::int32_t materialCount() const;
  Matrix6 stiffness(std::int32_t material) const;
  Vector6 thermalStress(std::int32_t material) const;

  /// Volume means.
  Matrix6 meanStiffness() const;
  Vector6 meanThermalStress() const;

  /// Calls visit(j, begin, end, material) for every run of equal voxels of plane i: those of row j
  /// from k = begin to end - 1.
  template <class Visit>
  void forEachRun(const int i, const Visit& visit) const {
    const std::int32_t* const rows = rowRuns(i);
    for (int j = 0; j < shape_.n2; ++j) {
      for (std::int32_t run = rows[j]; run < rows[j + 1]; ++run) {
        const kernels::Run* const own = runs() + run;
        visit(j, own->begin, run + 1 < rows[j + 1] ? own[1].begin : shape_.n3, own->material);
      }
    }
  }

  /// For the kernels: of voxel plane i, n2 + 1 offsets into runs().
  const std::int32_t* rowRuns(int i) const;
  const kernels::Run* runs() const { return runs_.data(); }
  const double* stiffnessData() const { return stiffness_.data(); }
  const double* thermalStressData() const { return thermalStress_.data(); }

 private:
  std::vector<double> materialShares() const;

  GridShape shape_;
  std::vector<double> stiffness_;
  std::vector<double> thermalStress_;
  std::vector<std::int32_t> rowRuns_;
  std::vector<kernels::Run> runs_;
  std::size_t voxels_ = 0;
};

}  // namespace kx

#endif
