// SPDX-License-Identifier: BSD-3-Clause
#include "weave/cell/CellSolver.h"

#include <algorithm>
#include <utility>

namespace kx {

namespace {

// Above, the planes of one cell are shared out instead of load cases: the numbers of one pair of
// cases then stay in the cache, and memory does not grow with the threads.
constexpr std::size_t kLargeCell = 100000;

std::vector<CasePair> casesToSolve(const bool exchangeable, const ThermalCase thermal) {
  std::vector<CasePair> pairs;
  if (exchangeable) {
    pairs = {{k11, k33}, {k12, k13}};
  } else {
    pairs = {{k11, k22}, {k33, k12}, {k13, k23}};
  }
  if (thermal == ThermalCase::with) {
    pairs.push_back({kThermalCase, kLoadCases});
  }
  return pairs;
}

kernels::PairLoad unitLoad(const CasePair& cases) {
  kernels::PairLoad load;
  for (std::size_t lane = 0; lane < 2; ++lane) {
    if (cases[lane] < kStrainCases) {
      load.strain[cases[lane]][lane] = 1.0;
    }
    if (cases[lane] == kThermalCase) {
      load.temperature[lane] = kSolvedTemperature;
    }
  }
  return load;
}

// The start of one pair of cases: what is given of them, zero elsewhere.
PairField startOf(const CasePair& cases, const GridShape& shape, const CellFields& given) {
  PairField start(shape);
  for (std::size_t lane = 0; lane < 2; ++lane) {
    if (cases[lane] == kLoadCases || !given.holds(cases[lane])) {
      continue;
    }
    const CellFields::Place place = given.find(cases[lane]);
    for (int i = 0; i < shape.n1; ++i) {
      const double* const from = place.field->plane(i) + place.lane;
      double* const to = start.plane(i) + lane;
      for (std::size_t t = 0; t < place.field->planeStride(); t += 2) {
        to[t] = from[t];
      }
    }
  }
  return start;
}

CellFields startFor(const std::vector<CasePair>& pairs,
                    const GridShape& shape,
                    const CellFields& given) {
  CellFields start;
  for (const CasePair& cases : pairs) {
    start.cases.push_back(cases);
    start.pairs.push_back(startOf(cases, shape, given));
  }
  return start;
}

}  // namespace

CellSolver::CellSolver(const UnitCell& cell, ThreadPool& team)
    : cell_(cell), team_(team), basis_(std::make_shared<SpectralBasis>(cell.shape())) {}

bool CellSolver::isExchangeable(const UnitCell& cell, const CellConstituents& constituents) {
  const WeaveGeometry& geometry = cell.geometry();
  if (geometry.fillFraction() != geometry.warpFraction()) {
    return false;
  }
  const PhaseStiffness& fill = constituents.phases[kFill];
  const PhaseStiffness& warp = constituents.phases[kWarp];
  if (fill.c != warp.c) {
    return false;
  }
  const PhaseStiffness& pocket = constituents.phases[kPocket];
  const Matrix6 turn = strainTransform(warpFrame(0.0));
  const double rounding = 1e-14 * pocket.c.norm();
  return (rotateStiffness(pocket.c, turn) - pocket.c).norm() <= rounding;
}

CellSolve CellSolver::solvePair(const CellMaterials& materials,
                                const SolveSettings& settings,
                                const CasePair& cases,
                                PairField& field,
                                PairSolver& solver,
                                ThreadPool& team) const {
  const std::array<bool, 2> active{cases[0] < kLoadCases, cases[1] < kLoadCases};
  const auto reports =
      solver.solve(materials.field(), unitLoad(cases), active, field, settings, team);
  return {reports[0].iterations + reports[1].iterations,
          reports[0].isConverged && reports[1].isConverged};
}

CellSolve CellSolver::solvePairs(const CellMaterials& materials,
                                 const SolveSettings& settings,
                                 CellFields& fields) {
  const std::size_t pairs = fields.cases.size();
  const auto threads = static_cast<std::size_t>(team_.threads());
  const bool large = cell_.shape().voxels() > kLargeCell;
  const std::size_t together = large ? 0 : pairs / threads * threads;
  const std::size_t workspaces = together > 0 ? threads : 1;
  while (solvers_.size() < workspaces) {
    solvers_.push_back(std::make_unique<PairSolver>(basis_));
  }
  std::vector<CellSolve> solves(pairs);
  for (std::size_t round = 0; round < together; round += threads) {
    team_.forEach(threads, [&](const std::size_t t) {
      ThreadPool alone(1);
      const std::size_t p = round + t;
      solves[p] =
          solvePair(materials, settings, fields.cases[p], fields.pairs[p], *solvers_[t], alone);
    });
  }
  for (std::size_t p = together; p < pairs; ++p) {
    solves[p] =
        solvePair(materials, settings, fields.cases[p], fields.pairs[p], *solvers_[0], team_);
  }
  CellSolve all;
  for (const CellSolve& solve : solves) {
    all.iterations += solve.iterations;
    all.isConverged = all.isConverged && solve.isConverged;
  }
  return all;
}

CellSolve CellSolver::solve(const CellMaterials& materials,
                            const ThermalCase thermal,
                            const SolveSettings& settings,
                            CellFields& fields) {
  const bool exchangeable = isExchangeable(cell_, materials.constituents());
  fields = startFor(casesToSolve(exchangeable, thermal), cell_.shape(), fields);
  const CellSolve solve = solvePairs(materials, settings, fields);
  if (exchangeable) {
    addExchangedCases(cell_, fields);
  }
  return solve;
}

CellSolve CellSolver::solveCase(const CellMaterials& materials,
                                const std::size_t loadCase,
                                const SolveSettings& settings,
                                CellFields& fields) {
  const CasePair pair{loadCase, kLoadCases};
  CellFields own = startFor({pair}, cell_.shape(), {});
  const auto known = std::find(fields.cases.begin(), fields.cases.end(), pair);
  if (known != fields.cases.end()) {
    const auto at = known - fields.cases.begin();
    own.pairs[0] = std::move(fields.pairs[static_cast<std::size_t>(at)]);
    fields.cases.erase(known);
    fields.pairs.erase(fields.pairs.begin() + at);
  }
  const CellSolve solve = solvePairs(materials, settings, own);
  fields.cases.push_back(pair);
  fields.pairs.push_back(std::move(own.pairs[0]));
  return solve;
}

}  // namespace kx
