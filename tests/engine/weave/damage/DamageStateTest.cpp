// SPDX-License-Identifier: BSD-3-Clause
#include "weave/damage/DamageState.h"

#include <gtest/gtest.h>

namespace kx {
namespace {

const TransverselyIsotropic kFiber{230e9, 15e9, 0.2, 0.25, 20e9, -5e-7, 1e-5};
const TransverselyIsotropic kMatrix = isotropic(3.5e9, 0.35, 5.5e-5);

WeaveDescription plainWeave(const CellResolution& resolution) {
  WeaveDescription weave;
  weave.fillFraction = weave.warpFraction = 0.4;
  weave.fiberFraction = 0.7;
  weave.resolution = resolution;
  return weave;
}

DamageState stateOf(const DamageCodes& codes,
                    const DegradationFactors& factors = {},
                    const CellResolution& resolution = {6, 6}) {
  WeaveModel model(1);
  return damageState(model, plainWeave(resolution), kFiber, kMatrix, codes, factors);
}

TEST(DamageState, FailedPhasesKeepPoissonsRatiosAndExpansions) {
  const DamageState state = stateOf({1, 1, 2}, {0.02, 0.3});
  EXPECT_DOUBLE_EQ(state.pocket.e11, 0.3 * kMatrix.e11);
  EXPECT_DOUBLE_EQ(state.fillMatrix.g12, 0.3 * kMatrix.g12);
  EXPECT_DOUBLE_EQ(state.fillFiber.e11, kFiber.e11);
  EXPECT_DOUBLE_EQ(state.warpMatrix.e22, 0.3 * kMatrix.e22);
  EXPECT_DOUBLE_EQ(state.warpFiber.e11, 0.02 * kFiber.e11);
  EXPECT_DOUBLE_EQ(state.warpFiber.g12, 0.02 * kFiber.g12);
  EXPECT_EQ(state.warpFiber.v12, kFiber.v12);
  EXPECT_EQ(state.warpFiber.v23, kFiber.v23);
  EXPECT_EQ(state.warpFiber.a11, kFiber.a11);
  EXPECT_EQ(state.pocket.v12, kMatrix.v12);
  EXPECT_EQ(state.pocket.a33, kMatrix.a22);
}

TEST(DamageState, FactorsThatAreNotGivenAreATenthAndAHundredth) {
  for (const double missing : {0.0, -1.0, std::nan("")}) {
    const DamageState state = stateOf({0, 2, 0}, {missing, missing});
    EXPECT_DOUBLE_EQ(state.fillMatrix.e11, 0.1 * kMatrix.e11);
    EXPECT_DOUBLE_EQ(state.fillFiber.e11, 0.01 * kFiber.e11);
  }
}

TEST(DamageState, FactorsAboveOneAreOne) {
  const DamageState state = stateOf({0, 2, 0}, {7.0, 1.5});
  EXPECT_DOUBLE_EQ(state.fillMatrix.e11, kMatrix.e11);
  EXPECT_DOUBLE_EQ(state.fillFiber.e11, kFiber.e11);
}

TEST(DamageState, TinyFactorsAreRaised) {
  const DamageState state = stateOf({0, 2, 0}, {1e-9, 1e-12});
  EXPECT_DOUBLE_EQ(state.fillMatrix.e11, 1e-4 * kMatrix.e11);
  EXPECT_DOUBLE_EQ(state.fillFiber.e11, 1e-4 * kFiber.e11);
}

TEST(DamageState, EveryDamageSoftensThePly) {
  const Properties intact = stateOf({0, 0, 0}).composite;
  for (const DamageCodes& codes :
       {DamageCodes{1, 0, 0}, DamageCodes{0, 1, 0}, DamageCodes{0, 0, 2}}) {
    const Properties damaged = stateOf(codes).composite;
    for (double Properties::*modulus : {&Properties::e11,
                                        &Properties::e22,
                                        &Properties::e33,
                                        &Properties::g12,
                                        &Properties::g13,
                                        &Properties::g23}) {
      EXPECT_LT(damaged.*modulus, intact.*modulus);
    }
  }
}

// Values of an independent voxel code with another element and other composite voxels, given to
// three digits [GPa]: E11, E22, E33, G12. On its grid of 12 voxels per tow its moduli are up to 7 %
// from those of fine grids where fibers carry, more than ours.
TEST(DamageState, AgreesWithPublishedStatesOfThePlainWeave) {
  struct Case {
    DamageCodes codes;
    double e11, e22, e33, g12;
  };
  constexpr double kGridError = 0.07;
  for (const Case& c : {Case{{0, 0, 0}, 61.0, 61.0, 8.9, 4.4},
                        Case{{0, 1, 0}, 51.7, 54.4, 3.9, 2.5},
                        Case{{1, 0, 0}, 51.6, 51.6, 4.8, 4.0},
                        Case{{0, 2, 0}, 4.7, 45.0, 0.7, 2.2},
                        Case{{1, 1, 1}, 33.9, 33.9, 1.6, 0.57}}) {
    const Properties ply = stateOf(c.codes, {0.01, 0.1}, {12, 12}).composite;
    EXPECT_NEAR(ply.e11 * 1e-9, c.e11, 0.05 + kGridError * c.e11);
    EXPECT_NEAR(ply.e22 * 1e-9, c.e22, 0.05 + kGridError * c.e22);
    EXPECT_NEAR(ply.e33 * 1e-9, c.e33, 0.05 + kGridError * c.e33);
    EXPECT_NEAR(ply.g12 * 1e-9, c.g12, 0.05 + kGridError * c.g12);
  }
}

TEST(DamageState, ChainsFromThePlyToFiberAndMatrix) {
  // In a fill tow without inclination, composite axes are tow axes: the chain's sums hold there.
  const DamageState state = stateOf({1, 1, 0});
  const double c = 0.7;
  const Matrix6 strain = c * state.fiberInFill.strain + (1 - c) * state.matrixInFill.strain;
  const Matrix6 stress = c * state.fiberInFill.stress + (1 - c) * state.matrixInFill.stress;
  EXPECT_LT((strain - Matrix6::Identity()).norm(), 1e-10);
  EXPECT_LT((stress - Matrix6::Identity()).norm(), 1e-10);
}

TEST(DamageState, StaysAdmissibleForEveryStateAndTinyFactors) {
  WeaveModel model(2);
  for (int number = 0; number < 18; ++number) {
    const DamageCodes codes{number % 2, (number / 2) % 3, number / 6};
    const DamageState state =
        damageState(model, plainWeave({4, 4}), kFiber, kMatrix, codes, {1e-4, 1e-4});
    EXPECT_TRUE(isAdmissible(state.composite)) << number;
  }
  EXPECT_LE(model.solvedCells(), 12);  // six states are others' with fill and warp exchanged
}

}  // namespace
}  // namespace kx
