// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_CELL_UNITCELL_H
#define KX_WEAVE_CELL_UNITCELL_H

#include <array>
#include <cstddef>
#include <vector>

#include "elastic/Rotation.h"
#include "weave/geometry/WeaveGeometry.h"
#include "weave/voxel/GridShape.h"

namespace kx {

/// The three phases of a unit cell that have a volume, in the order of every array of phases.
enum CellPhase : std::size_t { kPocket, kFill, kWarp };
inline constexpr std::size_t kCellPhases = 3;

/// Voxels per tow along axes 1 and 2, and through the thickness (rounded up to an even number).
struct CellResolution {
  int perTow = 0;
  int throughThickness = 0;
};

/// The grids that weaves are computed on: multiples of small primes in every direction, so that the
/// transforms are fast. What comes of them is extrapolated; docs/engine.md has the errors.
inline constexpr CellResolution kFineGrid{16, 12};
inline constexpr CellResolution kCoarseGrid{6, 6};

/// The voxel model of a weave's smallest unit cell: one warp tow wide and displaced along the warp
/// from repeat to repeat where the pattern allows it (plain weave, 5- and 8-harness satin), else
/// the whole repeat. Phase fractions per voxel are exact along the normal, sampled at the voxel
/// columns' centres in the plane.
class UnitCell {
 public:
  UnitCell(const WeaveGeometry& geometry, const CellResolution& resolution);

  const GridShape& shape() const { return shape_; }
  const WeaveGeometry& geometry() const { return geometry_; }
  const CellResolution& resolution() const { return resolution_; }

  /// What the normal through the voxels (i, j, all k) meets.
  const WeaveColumn& column(int i, int j) const;

  /// Fractions of the phases in voxel k of a column; they sum to 1.
  std::array<double, kCellPhases> fractions(const WeaveColumn& column, int k) const;

  /// Axes of the interfaces in voxel k of a column: the third is their normal, the mean one where
  /// there are several.
  Frame interfaceFrame(const WeaveColumn& column, int k) const;

  /// Length of the part of an interval that lies in voxel k, over the voxel's height.
  double overlap(const Interval& interval, int k) const;

  /// Volume fractions of the phases in the voxel model.
  const std::array<double, kCellPhases>& phaseFractions() const { return phaseFractions_; }

 private:
  WeaveGeometry geometry_;
  CellResolution resolution_;
  GridShape shape_;
  std::vector<WeaveColumn> columns_;
  std::array<double, kCellPhases> phaseFractions_{};
};

}  // namespace kx

#endif
