// SPDX-License-Identifier: BSD-3-Clause
#include "weave/model/WeaveModel.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace kx {

namespace {

constexpr std::size_t kMostRemembered = 64;

// Squared in the moduli and expansions; concentrations move by some 1e-4.
constexpr SolveSettings kResponseSettings{1e-3};

void append(std::vector<double>& key, const TransverselyIsotropic& solid) {
  key.insert(key.end(), {solid.e11, solid.e22, solid.v12, solid.v23, solid.g12});
}

std::vector<double> weaveKey(const WeaveDescription& weave) {
  return {static_cast<double>(weave.harness),
          weave.fillFraction,
          weave.warpFraction,
          weave.fiberFraction,
          weave.thicknessOverPitch,
          static_cast<double>(weave.resolution.perTow),
          static_cast<double>(weave.resolution.throughThickness)};
}

std::vector<double> moduliKey(const WeaveConstituents& c) {
  std::vector<double> key;
  for (const auto* solid : {&c.pocket, &c.fillFiber, &c.fillMatrix, &c.warpFiber, &c.warpMatrix}) {
    append(key, *solid);
  }
  return key;
}

std::vector<double> completeKey(const WeaveDescription& weave, const WeaveConstituents& c) {
  std::vector<double> key = weaveKey(weave);
  const std::vector<double> moduli = moduliKey(c);
  key.insert(key.end(), moduli.begin(), moduli.end());
  for (const auto* solid : {&c.pocket, &c.fillFiber, &c.fillMatrix, &c.warpFiber, &c.warpMatrix}) {
    key.insert(key.end(), {solid->a11, solid->a22});
  }
  return key;
}

bool isIsotropic(const TransverselyIsotropic& solid) {
  const auto near = [](const double a, const double b) {
    constexpr double kRounding = 1e-12;
    return std::abs(a - b) <= kRounding * std::abs(b);
  };
  const auto same = isotropic(solid.e11, solid.v12, solid.a11);
  return near(solid.e22, same.e22) && near(solid.v23, same.v23) && near(solid.g12, same.g12) &&
         near(solid.a22, same.a22);
}

// Of a weave and the one with fill and warp exchanged, one is solved and serves both.
bool isBetterExchanged(const WeaveDescription& weave, const WeaveConstituents& c) {
  if (!isIsotropic(c.pocket)) {
    return false;
  }
  const auto tow = [](const double fraction,
                      const TransverselyIsotropic& fiber,
                      const TransverselyIsotropic& matrix) {
    std::vector<double> key{fraction};
    append(key, fiber);
    append(key, matrix);
    key.insert(key.end(), {fiber.a11, fiber.a22, matrix.a11, matrix.a22});
    return key;
  };
  return tow(weave.fillFraction, c.fillFiber, c.fillMatrix) <
         tow(weave.warpFraction, c.warpFiber, c.warpMatrix);
}

Concentration exchanged(const Concentration& c, const Matrix6& strain, const Matrix6& stress) {
  // Signed permutations: the transposes are the inverses.
  return {strain * c.strain * strain.transpose(),
          strain * c.thermalStrain,
          stress * c.stress * stress.transpose(),
          stress * c.thermalStress};
}

// The response of the weave that the exchange of fill and warp makes of the one solved.
CellResponse exchanged(const CellResponse& solved, const int mirror) {
  Frame frame;
  frame << 0, 1, 0, mirror, 0, 0, 0, 0, -1;
  const Matrix6 strain = strainTransform(frame);
  const Matrix6 stress = strainTransform(frame.transpose()).transpose();
  CellResponse result = solved;
  result.stiffness = stress * solved.stiffness * strain.transpose();
  result.compliance = strain * solved.compliance * stress.transpose();
  result.expansion = strain * solved.expansion;
  result.phases[kPocket] = exchanged(solved.phases[kPocket], strain, stress);
  result.phases[kFill] = exchanged(solved.phases[kWarp], strain, stress);
  result.phases[kWarp] = exchanged(solved.phases[kFill], strain, stress);
  result.interface = exchanged(solved.interface, strain, stress);
  return result;
}

/// Of a response whose thermal stresses are not within range.
void forgetExpansion(CellResponse& response) {
  static constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  response.expansion.setConstant(kNone);
  const auto forget = [](Concentration& phase) {
    phase.thermalStrain.setConstant(kNone);
    phase.thermalStress.setConstant(kNone);
  };
  std::for_each(response.phases.begin(), response.phases.end(), forget);
  forget(response.interface);
}

}  // namespace

WeaveModel::WeaveModel(const int threads) : team_(threads) {}

CellResponse WeaveModel::response(const WeaveDescription& weave,
                                  const WeaveConstituents& constituents) {
  if (isBetterExchanged(weave, constituents)) {
    WeaveDescription turned = weave;
    std::swap(turned.fillFraction, turned.warpFraction);
    WeaveConstituents swapped = constituents;
    std::swap(swapped.fillFiber, swapped.warpFiber);
    std::swap(swapped.fillMatrix, swapped.warpMatrix);
    const int mirror = InterlacingPattern::ofHarness(weave.harness)->exchange().mirror;
    return exchanged(solve(turned, swapped), mirror);
  }
  return solve(weave, constituents);
}

CellSensitivity WeaveModel::sensitivity(const WeaveDescription& weave,
                                        const WeaveConstituents& constituents) {
  Cell& cell = cellOf(weave);
  solveStrains(cell, constituents);
  return cell.solved.sensitivity();
}

CellResponse WeaveModel::solve(const WeaveDescription& weave,
                               const WeaveConstituents& constituents) {
  const Key key = completeKey(weave, constituents);
  const auto known = std::find_if(remembered_.begin(),
                                  remembered_.end(),
                                  [&](const Remembered& entry) { return entry.key == key; });
  if (known != remembered_.end()) {
    return known->response;
  }
  Cell& cell = cellOf(weave);
  solveStrains(cell, constituents);
  CellResponse response = cell.solved.response(constituents, kResponseSettings);
  response.isConverged = response.isConverged && cell.isConverged;
  if (!cellConstituents(weave, constituents).hasThermalStress) {
    forgetExpansion(response);
  }
  remembered_.push_back({key, response});
  if (remembered_.size() > kMostRemembered) {
    remembered_.pop_front();
  }
  return remembered_.back().response;
}

WeaveModel::Cell& WeaveModel::cellOf(const WeaveDescription& weave) {
  const Key key = weaveKey(weave);
  if (!cell_ || cell_->weaveKey != key) {
    cell_ = nullptr;  // before the next one takes its memory
    cell_ = std::make_unique<Cell>(weave, team_);
    cell_->weaveKey = key;
  }
  return *cell_;
}

void WeaveModel::solveStrains(Cell& cell, const WeaveConstituents& constituents) {
  const Key key = moduliKey(constituents);
  if (cell.moduliKey != key) {
    cell.solved.forget();
    cell.isConverged = cell.solved.solveStrains(constituents, kResponseSettings);
    cell.moduliKey = key;
    ++solvedCells_;
  }
}

}  // namespace kx
