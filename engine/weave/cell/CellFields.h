// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_CELL_CELLFIELDS_H
#define KX_WEAVE_CELL_CELLFIELDS_H

#include <array>
#include <cstddef>
#include <vector>

#include "weave/cell/UnitCell.h"
#include "weave/voxel/PairField.h"

namespace kx {

/// The unit loads of a cell: the six overall strains in Voigt's order, then a temperature rise at
/// zero overall strain.
inline constexpr std::size_t kStrainCases = 6;
inline constexpr std::size_t kThermalCase = 6;
inline constexpr std::size_t kLoadCases = 7;

/// Temperature rise [K] of the thermal case as it is solved: large enough that its strains compare
/// with the unit strains, and a power of two, so that scaling back is exact.
inline constexpr double kSolvedTemperature = 8192.0;

/// Two load cases that are solved side by side; kLoadCases stands for none.
using CasePair = std::array<std::size_t, 2>;

/// Displacement fluctuations of a unit cell under its unit loads.
struct CellFields {
  std::vector<CasePair> cases;
  std::vector<PairField> pairs;  ///< same order as cases

  /// Where a case is kept. It must be one of `cases`.
  struct Place {
    const PairField* field;
    std::size_t lane;
  };
  Place find(std::size_t loadCase) const;
  bool holds(std::size_t loadCase) const;
};

/// Strains of the voxels of plane i under one load case: unit strain plus the gradient of its
/// fluctuation, kernels::kStrainRows rows of n2 * n3 values (those of the thermal case for a rise
/// of 1 K).
void planeStrains(const CellFields& fields, std::size_t loadCase, int i, double* strains);

/// Adds the cases 22 and 23 to fields that hold 11 and 13, in a cell that the exchange of fill and
/// warp, with the ply turned over, maps onto itself.
void addExchangedCases(const UnitCell& cell, CellFields& fields);

}  // namespace kx

#endif
