// SPDX-License-Identifier: BSD-3-Clause
#include "weave/cell/CompositeVoxel.h"

#include <gtest/gtest.h>

#include "elastic/Rotation.h"
#include "support/RandomMaterials.h"
#include "weave/cell/WeaveCases.h"

namespace kx {
namespace {

PhaseStiffness turned(const TransverselyIsotropic& solid, const Frame& frame) {
  const PhaseStiffness local = test::phaseOf(solid);
  const Matrix6 turn = strainTransform(frame);
  return {rotateStiffness(local.c, turn), rotateStress(local.beta, turn)};
}

struct Voxel {
  std::array<double, kCellPhases> fractions;
  std::array<PhaseStiffness, kCellPhases> phases;
  Frame interface = Frame::Identity();

  CompositeVoxel mixture() const {
    return {fractions, {&phases[0], &phases[1], &phases[2]}, interface};
  }
};

Voxel randomVoxel(test::RandomMaterials& random) {
  const double a = random.uniform(0.05, 0.9);
  const double b = random.uniform(0.05, 0.95 - a);
  return {{a, b, 1.0 - a - b},
          {test::phaseOf(random.isotropicMatrix()),
           turned(random.carbonFiber(), fillFrame(random.uniform(-0.4, 0.4))),
           turned(random.carbonFiber(), warpFrame(random.uniform(-0.4, 0.4)))}};
}

TEST(CompositeVoxel, PhaseStrainsAverageToTheVoxels) {
  test::RandomMaterials random(3);
  for (int draw = 0; draw < 20; ++draw) {
    const Voxel voxel = randomVoxel(random);
    const CompositeVoxel mixture = voxel.mixture();
    Matrix6 strain = Matrix6::Zero();
    Vector6 thermal = Vector6::Zero();
    for (std::size_t r = 0; r < kCellPhases; ++r) {
      strain += voxel.fractions[r] * mixture.localisation(r);
      thermal += voxel.fractions[r] * mixture.thermalLocalisation(r);
    }
    EXPECT_LT((strain - Matrix6::Identity()).norm(), 1e-12);
    EXPECT_LT(thermal.norm(), 1e-17);  // of expansions of the order of 1e-5
  }
}

TEST(CompositeVoxel, TurnsWithItsInterface) {
  test::RandomMaterials random(6);
  const Frame frame = fillFrame(0.3) * warpFrame(-0.2);
  const Matrix6 turn = strainTransform(frame);
  Voxel voxel = randomVoxel(random);
  const PhaseStiffness level = voxel.mixture().overall();
  for (PhaseStiffness& phase : voxel.phases) {
    phase = {rotateStiffness(phase.c, turn), rotateStress(phase.beta, turn)};
  }
  voxel.interface = frame;
  const PhaseStiffness inclined = voxel.mixture().overall();
  const Matrix6 expected = rotateStiffness(level.c, turn);
  const Vector6 thermal = rotateStress(level.beta, turn);
  EXPECT_LT((inclined.c - expected).norm(), 1e-12 * expected.norm());
  EXPECT_LT((inclined.beta - thermal).norm(), 1e-12 * thermal.norm());
}

TEST(CompositeVoxel, LayersShareTheTractionsOnTheirFaces) {
  test::RandomMaterials random(4);
  for (int draw = 0; draw < 20; ++draw) {
    const Voxel voxel = randomVoxel(random);
    const CompositeVoxel mixture = voxel.mixture();
    const PhaseStiffness overall = mixture.overall();
    for (std::size_t r = 0; r < kCellPhases; ++r) {
      const Matrix6 stress = voxel.phases[r].c * mixture.localisation(r);
      const Vector6 thermal =
          voxel.phases[r].c * mixture.thermalLocalisation(r) - voxel.phases[r].beta;
      for (const Voigt row : {k33, k13, k23}) {
        EXPECT_LT((stress.row(row) - overall.c.row(row)).norm(), 1e-12 * overall.c.norm());
        EXPECT_NEAR(thermal(row), -overall.beta(row), 1e-12 * overall.beta.norm());
      }
    }
  }
}

TEST(CompositeVoxel, IsSymmetricAndPositiveDefinite) {
  test::RandomMaterials random(5);
  for (int draw = 0; draw < 20; ++draw) {
    const PhaseStiffness overall = randomVoxel(random).mixture().overall();
    EXPECT_LT((overall.c - overall.c.transpose()).norm(), 1e-13 * overall.c.norm());
    EXPECT_TRUE(isPositiveDefinite(overall.c));
  }
}

TEST(CompositeVoxel, ThermalStressFollowsLevinsRelation) {
  test::RandomMaterials random(6);
  for (int draw = 0; draw < 20; ++draw) {
    const Voxel voxel = randomVoxel(random);
    const CompositeVoxel mixture = voxel.mixture();
    Vector6 levin = Vector6::Zero();
    for (std::size_t r = 0; r < kCellPhases; ++r) {
      levin += voxel.fractions[r] * mixture.localisation(r).transpose() * voxel.phases[r].beta;
    }
    EXPECT_LT((mixture.overall().beta - levin).norm(), 1e-12 * levin.norm());
  }
}

}  // namespace
}  // namespace kx
