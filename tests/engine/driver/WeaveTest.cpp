#include <array>
#include <vector>

#include <gtest/gtest.h>

#include "driver/Contract.h"

namespace {

TEST(WeaveOptimization, FitThatCannotStartKeepsTheStartValues) {
  const kx::test::UnidirectionalCall materials;
  auto lamina = materials.lamina;
  auto fiber = materials.fiber;
  auto matrix = materials.matrix;
  std::array<double, 6> errors{-7, -7, -7, -7, -7, -7};
  std::array<std::int32_t, 3> iterations{-7, -7, -7};
  const std::int32_t harness = 1, zero = 0;
  const double tows[] = {0.0, 0.0};
  const double fraction = 0.0;
  WEAVE_OPTIMIZATION(&harness,
                     tows,
                     &fraction,
                     lamina.data(),
                     fiber.data(),
                     matrix.data(),
                     errors.data(),
                     iterations.data(),
                     "DUMB",
                     "DUMB",
                     "DUMB",
                     &zero,
                     &zero);
  EXPECT_EQ(fiber, materials.fiber);
  EXPECT_EQ(matrix, materials.matrix);
  EXPECT_GE(errors[1], errors[0]);
  EXPECT_GE(errors[3], errors[2]);
  EXPECT_EQ(errors[4], -7);
  EXPECT_EQ(iterations[0], 0);
  EXPECT_EQ(iterations[1], 0);
  EXPECT_EQ(iterations[2], -7);
}

/// The arguments of WEAVE_DAMAGE_STATE as the program holds them.
struct DamageCall {
  std::int32_t pocket = 0, fill = 0, warp = 0;
  std::int32_t harness = 1;
  std::array<double, 2> tows{0.4, 0.4};
  double fiberInTow = 0.7;
  kx::test::Twelve fiber = kx::test::twelve({230e9, 15e9, 0.2, 0.25, 20e9, -5e-7, 1e-5});
  kx::test::Twelve matrix = kx::test::twelve(kx::isotropic(3.5e9, 0.35, 5.5e-5));
  double fiberFactor = -1.0, matrixFactor = -1.0;
  std::array<kx::test::Twelve, 8> sets{};
  std::array<double, 4 * 84> cell{};
  std::array<double, 2 * 84> inFill{}, inWarp{};

  void run() {
    const std::int32_t zero = 0;
    WEAVE_DAMAGE_STATE(&pocket,
                       &fill,
                       &warp,
                       &harness,
                       tows.data(),
                       &fiberInTow,
                       fiber.data(),
                       matrix.data(),
                       &fiberFactor,
                       &matrixFactor,
                       sets[0].data(),
                       sets[1].data(),
                       sets[2].data(),
                       sets[3].data(),
                       sets[4].data(),
                       sets[5].data(),
                       sets[6].data(),
                       sets[7].data(),
                       cell.data(),
                       inFill.data(),
                       inWarp.data(),
                       &zero,
                       "DUMB",
                       "DUMB",
                       "DUMB",
                       &zero,
                       &zero);
  }
};

TEST(WeaveDamageState, FillsTheSetsInTheirOrder) {
  DamageCall call;
  call.pocket = 1;
  call.fill = 2;
  call.fiberFactor = 0.02;
  call.matrixFactor = 0.5;
  call.run();
  const auto& [composite, pocket, fill, warp, fillFiber, fillMatrix, warpFiber, warpMatrix] =
      call.sets;
  EXPECT_DOUBLE_EQ(pocket[0], 0.5 * 3.5e9);
  EXPECT_DOUBLE_EQ(fillFiber[0], 0.02 * 230e9);
  EXPECT_DOUBLE_EQ(fillMatrix[0], 0.5 * 3.5e9);
  EXPECT_DOUBLE_EQ(warpFiber[0], 230e9);
  EXPECT_DOUBLE_EQ(warpMatrix[0], 3.5e9);
  EXPECT_GT(warp[0], 10 * fill[0]);
  EXPECT_GT(composite[1], 2 * composite[0]);  // the warp still carries
  EXPECT_EQ(call.pocket, 1);
  EXPECT_EQ(call.fill, 2);
  EXPECT_EQ(call.warp, 0);
}

TEST(WeaveDamageState, BlocksHoldTheSlotsInTheirOrder) {
  DamageCall call;
  call.fill = 1;
  call.run();
  const double pocketFraction = 1 - call.tows[0] - call.tows[1];
  for (const std::size_t matrix : {0U, 36U}) {
    for (std::size_t i = 0; i < 36; ++i) {
      const double identity = i % 7 == 0 ? 1.0 : 0.0;
      const std::size_t at = matrix + i;
      // The voxel model's fractions are within 0.001 of the weave's.
      EXPECT_NEAR(call.tows[0] * call.cell[at] + pocketFraction * call.cell[84 + at] +
                      call.tows[1] * call.cell[168 + at],
                  identity,
                  0.01);
      EXPECT_NEAR(0.7 * call.inFill[at] + 0.3 * call.inFill[84 + at], identity, 1e-9);
      EXPECT_NEAR(0.7 * call.inWarp[at] + 0.3 * call.inWarp[84 + at], identity, 1e-9);
    }
  }
  // The fill tow lies along 1 and carries the stress there, the warp tow along 2, and more of it.
  EXPECT_GT(call.cell[0], 2.0);
  EXPECT_GT(call.cell[168 + 7], 2.0);
  EXPECT_LT(call.cell[84], 0.5);
  // By columns: transverse strain of the fiber under axial strain of the tow stands in row 2 of
  // column 1, and no axial strain under transverse strain.
  EXPECT_NE(call.inFill[36 + 1], 0.0);
  EXPECT_EQ(call.inFill[36 + 6], 0.0);
}

TEST(WeaveDamageState, AnswersNonsenseWithZeros) {
  DamageCall call;
  call.harness = 3;
  call.sets[0].fill(7.0);
  call.run();
  EXPECT_EQ(call.sets[0], kx::test::Twelve{});
}

TEST(WeaveOptimization, ReturnsThePlyOfTheFirstDamageState) {
  DamageCall truth;
  truth.run();
  auto lamina = truth.sets[0];
  lamina[7] = -1.0;  // G13 is not given
  auto fiber = kx::test::twelve({200e9, 17e9, 0.23, 0.3, 15e9, -3e-7, 1.2e-5});
  auto matrix = kx::test::twelve(kx::isotropic(4.2e9, 0.33, 4.5e-5));
  std::array<double, 6> errors{-7, -7, -7, -7, -7, -7};
  std::array<std::int32_t, 3> iterations{-7, -7, -7};
  const std::int32_t harness = 1, zero = 0, one = 1;
  SETISOFLAG(&one);
  WEAVE_OPTIMIZATION(&harness,
                     truth.tows.data(),
                     &truth.fiberInTow,
                     lamina.data(),
                     fiber.data(),
                     matrix.data(),
                     errors.data(),
                     iterations.data(),
                     "DUMB",
                     "DUMB",
                     "DUMB",
                     &zero,
                     &zero);
  EXPECT_GT(errors[0], 0.05);
  EXPECT_LT(errors[1], 3e-5);  // what two field solves leave in Poisson's ratios
  EXPECT_LT(errors[3], 1e-4);
  EXPECT_EQ(errors[4], -7);
  EXPECT_GT(iterations[0], 1);
  EXPECT_EQ(iterations[1], 1);
  std::int32_t iteration = -1;
  double error = -1.0;
  EXPECT_EQ(INSITU_STATUS(&iteration, &error), 0);
  EXPECT_GE(iteration, iterations[0]);
  DamageCall state;
  state.fiber = fiber;
  state.matrix = matrix;
  state.run();
  EXPECT_EQ(state.sets[0], lamina);
}

TEST(WeavePrefail, ReducesTheCurveAndSoftensTheMatrix) {
  const DamageCall materials;
  const auto lamina = kx::test::Twelve{};
  const double strength = 80e6;
  // d = 1 up to 20 MPa, then linear to 0.4 at 80 MPa.
  std::vector<double> stress;
  std::vector<double> strain;
  for (int i = 1; i <= 16; ++i) {
    const double tau = 5e6 * i;
    stress.push_back(tau);
    strain.push_back(tau / (4.4e9 * (tau <= 20e6 ? 1.0 : 1.0 - (tau - 20e6) / 100e6)));
  }
  const auto count = static_cast<std::int32_t>(stress.size());
  const std::int32_t zero = 0;
  double m = 0, b = 0, threshold = 0;
  std::array<double, 3> degradation{};
  std::int32_t failed = -1, code = -1;
  WEAVE_PREFAIL(&materials.harness,
                materials.tows.data(),
                &materials.fiberInTow,
                materials.matrix.data(),
                materials.fiber.data(),
                lamina.data(),
                &strength,
                stress.data(),
                strain.data(),
                "DUMB",
                &count,
                &m,
                &b,
                &threshold,
                degradation.data(),
                &failed,
                &code,
                &zero);
  EXPECT_EQ(failed, 0);
  EXPECT_EQ(code, 0);
  EXPECT_NEAR(threshold, 20e6, 0.1e6);
  EXPECT_NEAR(m, -1e-8, 1e-10);
  EXPECT_NEAR(degradation[0] + degradation[1] + degradation[2], 1.0, 0.005);
  EXPECT_NEAR(degradation[1], 0.695, 0.01);
}

}  // namespace
