// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_CELL_PHASESTRAINS_H
#define KX_WEAVE_CELL_PHASESTRAINS_H

#include <cstddef>
#include <vector>

#include "weave/cell/CellFields.h"
#include "weave/cell/CellMaterials.h"

namespace kx {

/// Strains in one voxel, composite axes: one column per load case.
using CaseStrains = Eigen::Matrix<double, 6, Eigen::Dynamic, 0, 6, kLoadCases>;

/// Strains of a phase in one voxel: their mean, and the root mean square of how they vary through
/// the voxel's height by bending (for a rise of 1 K in the thermal case, as all strains).
struct VoxelStrains {
  CaseStrains mean;
  CaseStrains bending;
};

/// Walks through the voxel columns of one plane of a solved cell and splits voxels that several
/// phases share into their phases. Load cases without a field are left out.
class PhaseStrains {
 public:
  /// `cases` load cases, the first ones of Voigt's order (6) or all (7).
  PhaseStrains(const CellMaterials& materials, const CellFields& fields, std::size_t cases);

  /// Loads plane i of the voxels.
  void load(int i);

  /// Calls visit(phase, share of the voxel, VoxelStrains of the phase, k) for every phase of every
  /// voxel of column j of the loaded plane.
  template <class Visit>
  void visitColumn(const int j, const Visit& visit) const {
    const UnitCell& cell = materials_.cell();
    const WeaveColumn& column = cell.column(plane_, j);
    const auto phases = materials_.phasesAt(plane_, j);
    for (int k = 0; k < cell.shape().n3; ++k) {
      const auto fractions = cell.fractions(column, k);
      const VoxelStrains strains = voxelStrains(j, k);
      std::size_t only = 0;
      if (isPure(fractions, only)) {
        visit(only, 1.0, strains, k);
        continue;
      }
      const CompositeVoxel voxel(fractions, phases, cell.interfaceFrame(column, k));
      for (std::size_t r = 0; r < kCellPhases; ++r) {
        if (fractions[r] > 0.0) {
          visit(r, fractions[r], localised(voxel, r, strains), k);
        }
      }
    }
  }

 private:
  VoxelStrains voxelStrains(int j, int k) const;
  VoxelStrains localised(const CompositeVoxel& voxel,
                         std::size_t phase,
                         const VoxelStrains& strains) const;

  const CellMaterials& materials_;
  const CellFields& fields_;
  std::size_t cases_;
  std::size_t voxels_;  ///< of a plane
  int plane_ = 0;
  std::vector<double> strains_;  ///< [case][kernels::kStrainRows][voxel of the plane]
};

}  // namespace kx

#endif
