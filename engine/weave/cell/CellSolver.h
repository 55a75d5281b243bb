// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_CELL_CELLSOLVER_H
#define KX_WEAVE_CELL_CELLSOLVER_H

#include <memory>
#include <vector>

#include "parallel/ThreadPool.h"
#include "weave/cell/CellFields.h"
#include "weave/cell/CellMaterials.h"
#include "weave/voxel/PairSolver.h"

namespace kx {

/// Whether the thermal load case is solved besides the six strains.
enum class ThermalCase { without, with };

/// How solves of load cases ended.
struct CellSolve {
  int iterations = 0;       ///< summed over the load cases that were solved
  bool isConverged = true;  ///< false: a case came to the end of its iterations before
};

/// Solves the unit loads of one unit cell for any constituents.
///
/// Where fill and warp are alike, the cases 22 and 23 follow from 11 and 13 by symmetry and are not
/// solved. Small cells share their load cases out to the threads, large ones the planes of a cell.
class CellSolver {
 public:
  CellSolver(const UnitCell& cell, ThreadPool& team);

  /// `fields` holds the start on entry (empty: from zero) and the solution on return.
  CellSolve solve(const CellMaterials& materials,
                  ThermalCase thermal,
                  const SolveSettings& settings,
                  CellFields& fields);

  /// Solves one load case by itself, from its field in `fields` if it was solved by itself before,
  /// else from zero; the other cases in `fields` stay.
  CellSolve solveCase(const CellMaterials& materials,
                      std::size_t loadCase,
                      const SolveSettings& settings,
                      CellFields& fields);

  /// True when exchanging fill and warp, with the ply turned over, changes no stiffness.
  static bool isExchangeable(const UnitCell& cell, const CellConstituents& constituents);

 private:
  CellSolve solvePairs(const CellMaterials& materials,
                       const SolveSettings& settings,
                       CellFields& fields);
  CellSolve solvePair(const CellMaterials& materials,
                      const SolveSettings& settings,
                      const CasePair& cases,
                      PairField& field,
                      PairSolver& solver,
                      ThreadPool& team) const;

  const UnitCell& cell_;
  ThreadPool& team_;
  std::shared_ptr<const SpectralBasis> basis_;
  std::vector<std::unique_ptr<PairSolver>> solvers_;  ///< one per pair that runs at the same time
};

}  // namespace kx

#endif
