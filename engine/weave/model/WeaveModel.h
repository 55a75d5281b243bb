#ifndef KX_WEAVE_MODEL_WEAVEMODEL_H
#define KX_WEAVE_MODEL_WEAVEMODEL_H

#include <deque>
#include <memory>
#include <optional>
#include <vector>

#include "parallel/ThreadPool.h"
#include "weave/cell/CellAverages.h"
#include "weave/cell/CellSolver.h"
#include "weave/model/WeaveDescription.h"

namespace kx {

/// Homogenises woven plies, and remembers what it has solved.
///
/// Results are functions of the arguments alone: what is remembered has the bits that solving again
/// would give. A weave whose fill and warp are exchanged is solved once for both.
class WeaveModel {
 public:
  explicit WeaveModel(int threads);

  /// Effective properties and concentrations. The description must be sensible, the constituents
  /// admissible. Where thermal stresses are not within range, what is thermal is no number.
  CellResponse response(const WeaveDescription& weave, const WeaveConstituents& constituents);

  /// Sensitivity to the phases' constants, from the same fields as response().
  CellSensitivity sensitivity(const WeaveDescription& weave, const WeaveConstituents& constituents);

  ThreadPool& team() { return team_; }

  /// Cells that were solved, rather than remembered; for tests.
  [[nodiscard]] int solvedCells() const { return solvedCells_; }

 private:
  using Key = std::vector<double>;
  struct Remembered {
    Key key;
    CellResponse response;
  };
  struct Cell {
    Cell(const WeaveDescription& weave, ThreadPool& team)
        : unit(weave.unitCell()), solver(unit, team) {}
    Key weaveKey;
    Key moduliKey;
    UnitCell unit;
    CellSolver solver;
    CellFields fields;  ///< of the six strains
  };

  CellResponse solve(const WeaveDescription& weave, const WeaveConstituents& constituents);
  Cell& cellOf(const WeaveDescription& weave);
  void solveStrains(Cell& cell,
                    const WeaveConstituents& constituents,
                    const CellMaterials& materials);

  ThreadPool team_;
  std::deque<Remembered> remembered_;
  std::unique_ptr<Cell> cell_;  ///< the last one
  int solvedCells_ = 0;
};

}  // namespace kx

#endif
