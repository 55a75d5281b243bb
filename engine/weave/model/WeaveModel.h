// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_MODEL_WEAVEMODEL_H
#define KX_WEAVE_MODEL_WEAVEMODEL_H

#include <deque>
#include <memory>
#include <optional>
#include <vector>

#include "parallel/ThreadPool.h"
#include "weave/model/WeaveCell.h"

namespace kx {

/// Homogenises woven plies, and remembers what it has solved.
///
///     WeaveModel model(ThreadPool::defaultThreads());
///     WeaveDescription weave{5, 0.4, 0.4, 0.65};  // 5-harness satin: fill, warp, fiber in the
///     tows const auto response = model.response(weave, WeaveConstituents::uniform(fiber, matrix));
///     propertiesFromCompliance(response.compliance, response.expansion).e11;
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
    Cell(const WeaveDescription& weave, ThreadPool& team) : solved(weave, team) {}
    Key weaveKey;
    Key moduliKey;
    WeaveCell solved;
    bool isConverged = true;
  };

  CellResponse solve(const WeaveDescription& weave, const WeaveConstituents& constituents);
  Cell& cellOf(const WeaveDescription& weave);
  void solveStrains(Cell& cell, const WeaveConstituents& constituents);

  ThreadPool team_;
  std::deque<Remembered> remembered_;
  std::unique_ptr<Cell> cell_;  ///< the last one
  int solvedCells_ = 0;
};

}  // namespace kx

#endif
