// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_MODEL_WEAVECELL_H
#define KX_WEAVE_MODEL_WEAVECELL_H

#include <memory>
#include <vector>

#include "parallel/ThreadPool.h"
#include "weave/cell/CellAverages.h"
#include "weave/cell/CellSolver.h"
#include "weave/model/WeaveDescription.h"

namespace kx {

/// The unit cell of a weave on all its grids (WeaveDescription::grids), with the fields of the
/// constituents that were solved last. What it answers is extrapolated from its grids.
///
///     WeaveCell cell(weave, team);
///     cell.solveStrains(constituents, {});
///     const Matrix6 stiffness = cell.sensitivity().stiffnessFor(phases);
class WeaveCell {
 public:
  /// The description must be sensible.
  WeaveCell(const WeaveDescription& weave, ThreadPool& team);

  /// Solves the six strains, from the fields before. True when all reached their tolerance.
  bool solveStrains(const WeaveConstituents& constituents, const SolveSettings& settings);

  /// Solves one case alone, from its field before. True when it reached its tolerance.
  bool solveCase(const WeaveConstituents& constituents,
                 std::size_t loadCase,
                 const SolveSettings& settings);

  /// Sensitivity to the phases' constants; the six strains must have been solved.
  [[nodiscard]] CellSensitivity sensitivity() const;

  /// Solves the thermal case, too; the six strains must have been solved for the same moduli.
  CellResponse response(const WeaveConstituents& constituents, const SolveSettings& settings);

  /// Diagonal entry of C* [Pa] of a case that was solved.
  [[nodiscard]] double strainEnergy(std::size_t loadCase) const;

  /// Forgets the fields: the next solve starts from zero.
  void forget();

 private:
  struct Grid {
    Grid(const WeaveDescription& weave, const CellResolution& resolution, ThreadPool& team)
        : unit(weave.unitCell(resolution)), solver(unit, team) {}
    UnitCell unit;
    CellSolver solver;
    std::unique_ptr<CellMaterials> materials;
    CellFields fields;
  };

  void fill(const WeaveConstituents& constituents);
  template <class Value>
  auto fromGrids(const Value& value) const;

  WeaveDescription weave_;
  ThreadPool& team_;
  std::vector<std::unique_ptr<Grid>> grids_;  ///< finest first
};

}  // namespace kx

#endif
