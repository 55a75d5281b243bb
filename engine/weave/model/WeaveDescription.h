// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_MODEL_WEAVEDESCRIPTION_H
#define KX_WEAVE_MODEL_WEAVEDESCRIPTION_H

#include <array>
#include <vector>

#include "elastic/TransverselyIsotropic.h"
#include "weave/cell/CellMaterials.h"
#include "weave/cell/UnitCell.h"

namespace kx {

/// Architecture of a woven ply.
struct WeaveDescription {
  int harness = 1;            ///< below 2 plain weave; 4, 5, 8 satin
  double fillFraction = 0.0;  ///< volume fractions of the tows
  double warpFraction = 0.0;
  double fiberFraction = 0.0;       ///< volume fraction of the fiber in the tows
  double thicknessOverPitch = 0.0;  ///< 0: the default of the weave
  CellResolution resolution;        ///< one grid instead of the usual two; 0: those

  /// A known harness number, all fractions inside (0, 1), tows that leave room in the ply.
  [[nodiscard]] bool isSensible() const;

  /// The grids that the weave is computed on: the fine and the coarse one of extrapolated(), or the
  /// one that is asked for.
  [[nodiscard]] std::vector<CellResolution> grids() const;

  /// The unit cell on a grid; the description must be sensible.
  [[nodiscard]] UnitCell unitCell(const CellResolution& grid) const;
};

/// The materials of a woven ply; the matrix of the pocket in composite axes, the others in the axes
/// of their tow.
struct WeaveConstituents {
  TransverselyIsotropic pocket;
  TransverselyIsotropic fillFiber, fillMatrix;
  TransverselyIsotropic warpFiber, warpMatrix;

  /// The same fiber and matrix everywhere.
  static WeaveConstituents uniform(const TransverselyIsotropic& fiber,
                                   const TransverselyIsotropic& matrix) {
    return {matrix, fiber, matrix, fiber, matrix};
  }
};

/// Constants of the phases of a unit cell: pocket, fill tow, warp tow.
std::array<TransverselyIsotropic, kCellPhases> phasesOf(const WeaveConstituents& constituents,
                                                        double fiberFraction);

/// The same as the voxel model takes them. When thermal stresses, or their squares, are beyond the
/// range of numbers there are none: the fields of elastic load cases would be no numbers, either.
CellConstituents cellConstituents(const WeaveDescription& weave,
                                  const WeaveConstituents& constituents);

}  // namespace kx

#endif
