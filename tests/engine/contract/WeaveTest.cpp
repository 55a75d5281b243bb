// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <array>
#include <cmath>

#include <gtest/gtest.h>

#include "contract/Contract.h"

namespace {

using kx::test::twelve;

TEST(WeaveOptimization, WhereThereIsNoModelThereAreNoNumbers) {
  const kx::test::UnidirectionalCall materials;
  kx::test::WeaveOptimization call;
  call.weave.towFractions = {0.0, 0.0};
  call.lamina = materials.lamina;
  call.fiber = materials.fiber;
  call.matrix = materials.matrix;
  call.run();
  for (const auto& set : {call.lamina, call.fiber, call.matrix}) {
    for (const double number : set) {
      EXPECT_TRUE(std::isnan(number));
    }
  }
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(call.errors[i], 1.0);
  }
  EXPECT_EQ(call.errors[4], kx::test::kUntouched);
  EXPECT_EQ(call.iterations[0], 0);
  EXPECT_EQ(call.iterations[1], 0);
  EXPECT_EQ(call.iterations[2], kx::test::kUntouched);
}

/// A plain weave of carbon and epoxy without damage.
struct DamageCall : kx::test::WeaveDamageState {
  DamageCall() {
    for (auto* code : {&pocketCode, &fillCode, &warpCode}) {
      code->value() = 0;
    }
    weave.towFractions = {0.4, 0.4};
    weave.fiberFractionInTow = 0.7;
    fiber = twelve({230e9, 15e9, 0.2, 0.25, 20e9, -5e-7, 1e-5});
    matrix = twelve(kx::isotropic(3.5e9, 0.35, 5.5e-5));
  }
};

TEST(WeaveDamageState, FillsTheSetsInTheirOrder) {
  DamageCall call;
  call.pocketCode.value() = 1;
  call.fillCode.value() = 2;
  call.fiberDegradation = 0.02;
  call.matrixDegradation = 0.5;
  call.run();
  EXPECT_DOUBLE_EQ(call.matrixPocket[0], 0.5 * 3.5e9);
  EXPECT_DOUBLE_EQ(call.fillFiber[0], 0.02 * 230e9);
  EXPECT_DOUBLE_EQ(call.fillMatrix[0], 0.5 * 3.5e9);
  EXPECT_DOUBLE_EQ(call.warpFiber[0], 230e9);
  EXPECT_DOUBLE_EQ(call.warpMatrix[0], 3.5e9);
  EXPECT_GT(call.warp[0], 10 * call.fill[0]);
  EXPECT_GT(call.composite[1], 2 * call.composite[0]);  // the warp still carries
  EXPECT_EQ(call.pocketCode.value(), 1);
  EXPECT_EQ(call.fillCode.value(), 2);
  EXPECT_EQ(call.warpCode.value(), 0);
}

TEST(WeaveDamageState, BlocksHoldTheSlotsInTheirOrder) {
  constexpr std::size_t kFill = std::size_t{KX_CELL_FILL} * KX_SLOT_LENGTH;
  constexpr std::size_t kPocket = std::size_t{KX_CELL_POCKET} * KX_SLOT_LENGTH;
  constexpr std::size_t kWarp = std::size_t{KX_CELL_WARP} * KX_SLOT_LENGTH;
  constexpr std::size_t kFiber = std::size_t{KX_TOW_FIBER} * KX_SLOT_LENGTH;
  constexpr std::size_t kMatrix = std::size_t{KX_TOW_MATRIX} * KX_SLOT_LENGTH;
  DamageCall call;
  call.fillCode.value() = 1;
  call.run();
  const double fillFraction = call.weave.towFractions[0];
  const double warpFraction = call.weave.towFractions[1];
  const double pocketFraction = 1 - fillFraction - warpFraction;
  for (const std::size_t matrix : {KX_SLOT_STRESS, KX_SLOT_STRAIN}) {
    for (std::size_t i = 0; i < 36; ++i) {
      const double identity = i % 7 == 0 ? 1.0 : 0.0;
      const std::size_t at = matrix + i;
      // The voxel model's fractions are within 0.001 of the weave's.
      EXPECT_NEAR(fillFraction * call.unitCellBlock[kFill + at] +
                      pocketFraction * call.unitCellBlock[kPocket + at] +
                      warpFraction * call.unitCellBlock[kWarp + at],
                  identity,
                  0.01);
      EXPECT_NEAR(
          0.7 * call.fillBlock[kFiber + at] + 0.3 * call.fillBlock[kMatrix + at], identity, 1e-9);
      EXPECT_NEAR(
          0.7 * call.warpBlock[kFiber + at] + 0.3 * call.warpBlock[kMatrix + at], identity, 1e-9);
    }
  }
  // The fill tow lies along 1 and carries the stress there, the warp tow along 2, and more of it.
  EXPECT_GT(call.unitCellBlock[kFill], 2.0);
  EXPECT_GT(call.unitCellBlock[kWarp + 7], 2.0);
  EXPECT_LT(call.unitCellBlock[kPocket], 0.5);
  // By columns: transverse strain of the fiber under axial strain of the tow stands in row 2 of
  // column 1, and no axial strain under transverse strain.
  EXPECT_NE(call.fillBlock[kFiber + KX_SLOT_STRAIN + 1], 0.0);
  EXPECT_EQ(call.fillBlock[kFiber + KX_SLOT_STRAIN + 6], 0.0);
}

void expectNoNumbers(const DamageCall& call) {
  for (const auto& set : {call.composite,
                          call.matrixPocket,
                          call.fill,
                          call.warp,
                          call.fillFiber,
                          call.fillMatrix,
                          call.warpFiber,
                          call.warpMatrix}) {
    EXPECT_TRUE(std::all_of(set.begin(), set.end(), [](double n) { return std::isnan(n); }));
  }
  for (const double number : call.unitCellBlock) {
    EXPECT_TRUE(std::isnan(number));
  }
}

TEST(WeaveDamageState, HasNoNumbersWhereThereIsNoModel) {
  DamageCall unknownWeave;
  unknownWeave.weave.harness = 3;
  DamageCall tooDense;
  tooDense.weave.towFractions = {0.6, 0.5};
  DamageCall overflowing;
  overflowing.fiber[0] = 1e300;
  DamageCall incompressible;
  incompressible.matrix = twelve(kx::isotropic(3.5e9, 0.5, 5.5e-5));
  for (DamageCall* call : {&unknownWeave, &tooDense, &overflowing, &incompressible}) {
    call->run();
    expectNoNumbers(*call);
  }
}

TEST(WeaveDamageState, FactorsAboveOneAreOne) {
  DamageCall call;
  call.fillCode.value() = 2;
  call.fiberDegradation = 7.0;
  call.matrixDegradation = 1e-9;
  call.run();
  EXPECT_DOUBLE_EQ(call.fillFiber[0], 230e9);
  EXPECT_DOUBLE_EQ(call.fillMatrix[0], 1e-4 * 3.5e9);
}

TEST(WeaveOptimization, ReturnsThePlyOfTheFirstDamageState) {
  DamageCall truth;
  truth.run();
  kx::test::WeaveOptimization call;
  call.weave = truth.weave;
  call.lamina = truth.composite;
  call.lamina[7] = -1.0;  // G13 is not given
  call.fiber = twelve({200e9, 17e9, 0.23, 0.3, 15e9, -3e-7, 1.2e-5});
  call.matrix = twelve(kx::isotropic(4.2e9, 0.33, 4.5e-5));
  const std::int32_t isotropic = 1;
  SETISOFLAG(&isotropic);
  std::int32_t before = -1;
  double error = -1.0;
  INSITU_STATUS(&before, &error);
  call.run();
  EXPECT_GT(call.errors[0], 0.05);
  EXPECT_LT(call.errors[1], 3e-5);  // what two field solves leave in Poisson's ratios
  EXPECT_LT(call.errors[3], 1e-4);
  EXPECT_EQ(call.errors[4], kx::test::kUntouched);
  EXPECT_GT(call.iterations[0], 1);
  EXPECT_EQ(call.iterations[1], 1);
  std::int32_t iteration = -1;
  EXPECT_EQ(INSITU_STATUS(&iteration, &error), 0);
  EXPECT_EQ(iteration - before - 1, call.iterations[0]);
  EXPECT_EQ(error, call.errors[1]);
  DamageCall state;
  state.fiber = call.fiber;
  state.matrix = call.matrix;
  state.run();
  EXPECT_EQ(state.composite, call.lamina);
}

TEST(WeavePrefail, ReducesTheCurveAndSoftensTheMatrix) {
  const DamageCall materials;
  kx::test::WeavePrefail call;
  call.weave = materials.weave;
  call.matrix = materials.matrix;
  call.fiber = materials.fiber;
  call.lamina.fill(0.0);
  call.shearStrength = 80e6;
  call.pointCount = 16;
  // d = 1 up to 20 MPa, then linear to 0.4 at 80 MPa.
  for (int i = 1; i <= call.pointCount; ++i) {
    const double tau = 5e6 * i;
    call.stress.push_back(tau);
    call.strain.push_back(tau / (4.4e9 * (tau <= 20e6 ? 1.0 : 1.0 - (tau - 20e6) / 100e6)));
  }
  call.run();
  EXPECT_EQ(call.failed.value(), 0);
  EXPECT_EQ(call.code.value(), 0);
  EXPECT_NEAR(call.thr.value(), 20e6, 0.1e6);
  EXPECT_NEAR(call.m.value(), -1e-8, 1e-10);
  EXPECT_NEAR(call.c2mdeg[0] + call.c2mdeg[1] + call.c2mdeg[2], 1.0, 0.005);
  EXPECT_NEAR(call.c2mdeg[1], 0.695, 0.01);
}

}  // namespace
