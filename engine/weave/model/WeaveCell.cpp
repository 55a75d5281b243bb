// SPDX-License-Identifier: BSD-3-Clause
#include "weave/model/WeaveCell.h"

#include <utility>

namespace kx {

WeaveCell::WeaveCell(const WeaveDescription& weave, ThreadPool& team) : weave_(weave), team_(team) {
  for (const CellResolution& resolution : weave.grids()) {
    grids_.push_back(std::make_unique<Grid>(weave, resolution, team));
  }
}

// A value of one grid, or of two the extrapolated one.
template <class Value>
auto WeaveCell::fromGrids(const Value& value) const {
  const auto finest = value(*grids_.front());
  return grids_.size() == 1 ? finest : extrapolated(finest, value(*grids_.back()));
}

void WeaveCell::fill(const WeaveConstituents& constituents) {
  const CellConstituents phases = cellConstituents(weave_, constituents);
  for (const auto& grid : grids_) {
    grid->materials = std::make_unique<CellMaterials>(grid->unit, phases);
  }
}

bool WeaveCell::solveStrains(const WeaveConstituents& constituents, const SolveSettings& settings) {
  fill(constituents);
  bool isConverged = true;
  for (const auto& grid : grids_) {
    const CellSolve solve =
        grid->solver.solve(*grid->materials, ThermalCase::without, settings, grid->fields);
    isConverged = isConverged && solve.isConverged;
  }
  return isConverged;
}

bool WeaveCell::solveCase(const WeaveConstituents& constituents,
                          const std::size_t loadCase,
                          const SolveSettings& settings) {
  fill(constituents);
  bool isConverged = true;
  for (const auto& grid : grids_) {
    const CellSolve solve =
        grid->solver.solveCase(*grid->materials, loadCase, settings, grid->fields);
    isConverged = isConverged && solve.isConverged;
  }
  return isConverged;
}

CellSensitivity WeaveCell::sensitivity() const {
  return fromGrids(
      [this](const Grid& grid) { return cellSensitivity(*grid.materials, grid.fields, team_); });
}

CellResponse WeaveCell::response(const WeaveConstituents& constituents,
                                 const SolveSettings& settings) {
  fill(constituents);
  bool isConverged = true;
  for (const auto& grid : grids_) {
    CellFields thermal;
    const CellSolve solve =
        grid->solver.solveCase(*grid->materials, kThermalCase, settings, thermal);
    isConverged = isConverged && solve.isConverged;
    grid->fields.cases.push_back(thermal.cases[0]);
    grid->fields.pairs.push_back(std::move(thermal.pairs[0]));
  }
  CellResponse response = cellResponse(fromGrids(
      [this](const Grid& grid) { return cellMeans(*grid.materials, grid.fields, team_); }));
  response.isConverged = isConverged;
  for (const auto& grid : grids_) {
    grid->fields.cases.pop_back();
    grid->fields.pairs.pop_back();
  }
  return response;
}

double WeaveCell::strainEnergy(const std::size_t loadCase) const {
  return fromGrids([loadCase](const Grid& grid) {
    return kx::strainEnergy(*grid.materials, grid.fields, loadCase);
  });
}

void WeaveCell::forget() {
  for (const auto& grid : grids_) {
    grid->fields = {};
  }
}

}  // namespace kx
