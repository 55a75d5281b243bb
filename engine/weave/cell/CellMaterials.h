// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_CELL_CELLMATERIALS_H
#define KX_WEAVE_CELL_CELLMATERIALS_H

#include <array>
#include <cstddef>
#include <vector>

#include "elastic/Rotation.h"
#include "weave/cell/CompositeVoxel.h"
#include "weave/cell/UnitCell.h"
#include "weave/voxel/MaterialField.h"

namespace kx {

/// The three materials of a weave: the pocket in composite axes, the tows in their own axes
/// (1 along the tow). Stiffness [Pa] and thermal stress beta = C alpha [Pa/K].
struct CellConstituents {
  std::array<PhaseStiffness, kCellPhases> phases;
  bool hasThermalStress = true;  ///< false: it is beyond the range of numbers, and 0 in its place
};

/// A tow's material at one inclination.
struct InclinedTow {
  Matrix6 toLocal = Matrix6::Identity();  ///< strain in tow axes = toLocal * composite strain
  PhaseStiffness composite;               ///< in composite axes
};

/// What fills the voxels of a unit cell.
class CellMaterials {
 public:
  CellMaterials(const UnitCell& cell, CellConstituents constituents);

  const MaterialField& field() const { return field_; }
  const UnitCell& cell() const { return cell_; }
  const CellConstituents& constituents() const { return constituents_; }

  const InclinedTow& fill(int i, int j) const;
  const InclinedTow& warp(int i, int j) const;

  /// Stiffness of the phases at column (i, j), composite axes.
  std::array<const PhaseStiffness*, kCellPhases> phasesAt(int i, int j) const;

 private:
  void inclineTows();
  void fillVoxels();
  std::size_t fillIndex(int i, int j) const;
  std::size_t warpIndex(int i, int j) const;

  const UnitCell& cell_;
  CellConstituents constituents_;
  std::vector<InclinedTow> fill_;  ///< a fill tow's inclination depends on i and its own number
  std::vector<InclinedTow> warp_;  ///< a warp tow's on j and its own number
  MaterialField field_;
};

/// True when exactly one phase fills a voxel; `phase` is then its number.
bool isPure(const std::array<double, kCellPhases>& fractions, std::size_t& phase);

}  // namespace kx

#endif
