// SPDX-License-Identifier: BSD-3-Clause
#include <gtest/gtest.h>

#include "weave/cell/CellAverages.h"
#include "weave/cell/WeaveCases.h"

namespace kx {
namespace {

class CellSensitivityTest : public ::testing::Test {
 protected:
  struct Solved {
    Matrix6 stiffness;
    CellSensitivity sensitivity;
  };

  static Solved solve(const std::array<TransverselyIsotropic, kCellPhases>& phases) {
    test::WeaveCase weave;
    weave.warp = 0.3;
    ThreadPool team(1);
    const UnitCell cell(weave.geometry(), {6, 6});
    const CellMaterials materials(
        cell, {{test::phaseOf(phases[0]), test::phaseOf(phases[1]), test::phaseOf(phases[2])}});
    CellSolver solver(cell, team);
    SolveSettings settings;
    settings.tolerance = 1e-9;
    CellFields fields;
    solver.solve(materials, ThermalCase::with, settings, fields);
    return {cellResponse(cellMeans(materials, fields, team)).stiffness,
            cellSensitivity(materials, fields, team)};
  }

  static std::array<TransverselyIsotropic, kCellPhases> phases() {
    return {TransverselyIsotropic{3.5e9, 4.0e9, 0.33, 0.36, 1.4e9, 0, 0},
            TransverselyIsotropic{160e9, 9e9, 0.25, 0.37, 5.4e9, 0, 0},
            TransverselyIsotropic{120e9, 8e9, 0.26, 0.33, 4.4e9, 0, 0}};
  }
};

TEST_F(CellSensitivityTest, GivesTheStiffnessAtItsOwnModuli) {
  const Solved solved = solve(phases());
  const Matrix6 found = solved.sensitivity.stiffnessFor(phases());
  EXPECT_LT((found - solved.stiffness).norm(), 1e-7 * solved.stiffness.norm());
}

TEST_F(CellSensitivityTest, GivesTheDerivativeForEveryModulusOfEveryPhase) {
  const auto base = phases();
  const Solved solved = solve(base);
  const double step = 1e-3;
  for (std::size_t phase = 0; phase < kCellPhases; ++phase) {
    for (double TransverselyIsotropic::*modulus : {&TransverselyIsotropic::e11,
                                                   &TransverselyIsotropic::e22,
                                                   &TransverselyIsotropic::v12,
                                                   &TransverselyIsotropic::v23,
                                                   &TransverselyIsotropic::g12}) {
      auto more = base;
      auto less = base;
      more[phase].*modulus *= 1.0 + step;
      less[phase].*modulus *= 1.0 - step;
      const Matrix6 difference = solve(more).stiffness - solve(less).stiffness;
      const Matrix6 predicted =
          solved.sensitivity.stiffnessFor(more) - solved.sensitivity.stiffnessFor(less);
      // Central differences: the second-order error of the surrogate cancels.
      EXPECT_LT((predicted - difference).norm(),
                1e-4 * difference.norm() + 1e-8 * solved.stiffness.norm());
    }
  }
}

TEST_F(CellSensitivityTest, OverestimatesTheStiffnessElsewhere) {
  // The fields of other moduli are trial fields of the minimum principle.
  const auto base = phases();
  const Solved solved = solve(base);
  auto other = base;
  other[kFill].g12 *= 0.5;
  other[kPocket].e11 *= 1.5;
  const Matrix6 excess = solved.sensitivity.stiffnessFor(other) - solve(other).stiffness;
  Eigen::SelfAdjointEigenSolver<Matrix6> modes((excess + excess.transpose()) / 2);
  EXPECT_GT(modes.eigenvalues().minCoeff(), -1e-6 * solved.stiffness.norm());
}

}  // namespace
}  // namespace kx
