// SPDX-License-Identifier: BSD-3-Clause
#include "weave/model/WeaveModel.h"

#include <gtest/gtest.h>

namespace kx {
namespace {

const TransverselyIsotropic kFiber{230e9, 15e9, 0.2, 0.25, 20e9, -5e-7, 1e-5};

WeaveConstituents constituents() {
  return WeaveConstituents::uniform(kFiber, isotropic(3.5e9, 0.35, 5.5e-5));
}

WeaveDescription smallWeave(const int harness = 1) {
  WeaveDescription weave;
  weave.harness = harness;
  weave.fillFraction = weave.warpFraction = 0.4;
  weave.fiberFraction = 0.7;
  weave.resolution = {6, 6};
  return weave;
}

WeaveConstituents softFill(const double factor) {
  WeaveConstituents damaged = constituents();
  damaged.fillMatrix.e11 *= factor;
  damaged.fillMatrix.e22 *= factor;
  damaged.fillMatrix.g12 *= factor;
  return damaged;
}

WeaveConstituents exchanged(WeaveConstituents given) {
  std::swap(given.fillFiber, given.warpFiber);
  std::swap(given.fillMatrix, given.warpMatrix);
  return given;
}

void expectSame(const CellResponse& a, const CellResponse& b) {
  EXPECT_EQ(a.stiffness, b.stiffness);
  EXPECT_EQ(a.expansion, b.expansion);
  for (std::size_t r = 0; r < kCellPhases; ++r) {
    EXPECT_EQ(a.phases[r].strain, b.phases[r].strain);
    EXPECT_EQ(a.phases[r].thermalStress, b.phases[r].thermalStress);
  }
  EXPECT_EQ(a.interface.stress, b.interface.stress);
}

TEST(WeaveDescription, KnowsWhatMakesSense) {
  EXPECT_TRUE(smallWeave().isSensible());
  for (const int harness : {2, 3, 6, 7, 9}) {
    EXPECT_FALSE(smallWeave(harness).isSensible());
  }
  for (const double wrong : {0.0, -0.1, 1.0, 2.0, std::nan("")}) {
    WeaveDescription weave = smallWeave();
    weave.fillFraction = wrong;
    EXPECT_FALSE(weave.isSensible());
    weave = smallWeave();
    weave.fiberFraction = wrong;
    EXPECT_FALSE(weave.isSensible());
  }
  WeaveDescription full = smallWeave();
  full.fillFraction = full.warpFraction = 0.6;
  EXPECT_FALSE(full.isSensible());
  full.fillFraction = 0.7;
  full.warpFraction = 0.3;
  EXPECT_FALSE(full.isSensible());
  full.warpFraction = 0.3 - 1e-16;
  EXPECT_FALSE(full.isSensible()) << "1 but for rounding";
  full.warpFraction = 0.299999;
  EXPECT_TRUE(full.isSensible());
}

TEST(WeaveModel, SolvesNothingTwice) {
  WeaveModel model(1);
  const CellResponse first = model.response(smallWeave(), constituents());
  EXPECT_EQ(model.solvedCells(), 1);
  expectSame(model.response(smallWeave(), constituents()), first);
  EXPECT_EQ(model.solvedCells(), 1);
}

TEST(WeaveModel, OtherExpansionsNeedNoNewStrainFields) {
  WeaveModel model(1);
  model.response(smallWeave(), constituents());
  WeaveConstituents other = constituents();
  for (auto* matrix : {&other.pocket, &other.fillMatrix, &other.warpMatrix}) {
    matrix->a11 = matrix->a22 = 8e-5;
  }
  const CellResponse second = model.response(smallWeave(), other);
  EXPECT_EQ(model.solvedCells(), 1);
  WeaveModel fresh(1);
  expectSame(fresh.response(smallWeave(), other), second);
}

TEST(WeaveModel, WhatItRememberedChangesNoBit) {
  WeaveModel model(2);
  model.response(smallWeave(), constituents());
  model.response(smallWeave(), softFill(0.3));
  const CellResponse late = model.response(smallWeave(), softFill(0.1));
  WeaveModel fresh(1);
  expectSame(fresh.response(smallWeave(), softFill(0.1)), late);
}

/// The strain fields are remembered for the same moduli with other expansions.
TEST(WeaveModel, ExpansionsBeyondTheRangeOfNumbersSpoilNoElasticField) {
  WeaveModel model(1);
  WeaveConstituents absurd = constituents();
  absurd.fillFiber.a11 = 1e300;
  const CellResponse overflown = model.response(smallWeave(), absurd);
  EXPECT_TRUE(overflown.expansion.hasNaN());
  EXPECT_TRUE(overflown.phases[kFill].thermalStress.hasNaN());
  const CellResponse after = model.response(smallWeave(), constituents());
  EXPECT_EQ(overflown.stiffness, after.stiffness);
  WeaveModel fresh(1);
  expectSame(after, fresh.response(smallWeave(), constituents()));
}

TEST(WeaveModel, DamageOfTheWarpIsDamageOfTheFillWithExchangedAxes) {
  for (const int harness : {1, 4, 5, 8}) {
    WeaveModel model(1);
    WeaveDescription weave = smallWeave(harness);
    weave.resolution = {4, 6};
    const CellResponse fill = model.response(weave, softFill(0.1));
    const CellResponse warp = model.response(weave, exchanged(softFill(0.1)));
    EXPECT_EQ(model.solvedCells(), 1);
    EXPECT_EQ(warp.stiffness(k11, k11), fill.stiffness(k22, k22));
    EXPECT_EQ(warp.stiffness(k13, k13), fill.stiffness(k23, k23));
    EXPECT_EQ(warp.expansion(k11), fill.expansion(k22));
    EXPECT_EQ(warp.phases[kWarp].strain(k22, k22), fill.phases[kFill].strain(k11, k11));
  }
}

TEST(WeaveModel, ExchangedResponseIsTheOneThatItsOwnSolutionGives) {
  for (const int harness : {1, 5, 8}) {
    WeaveDescription weave = smallWeave(harness);
    weave.resolution = {4, 6};
    const WeaveConstituents damaged = exchanged(softFill(0.1));
    WeaveModel model(1);
    const CellResponse exchange = model.response(weave, damaged);
    ThreadPool team(1);
    const UnitCell cell = weave.unitCell(weave.resolution);
    const CellMaterials materials(cell, cellConstituents(weave, damaged));
    CellSolver solver(cell, team);
    CellFields fields;
    solver.solve(materials, ThermalCase::with, {}, fields);
    const CellResponse own = cellResponse(cellMeans(materials, fields, team));
    // Both stop at 1e-3 in the fields or below, of which the moduli see the square.
    EXPECT_LT((exchange.stiffness - own.stiffness).norm(), 1e-5 * own.stiffness.norm());
    EXPECT_LT((exchange.expansion - own.expansion).norm(), 1e-4 * own.expansion.norm());
    for (std::size_t r = 0; r < kCellPhases; ++r) {
      EXPECT_LT((exchange.phases[r].strain - own.phases[r].strain).norm(), 1e-3);
      EXPECT_LT((exchange.phases[r].stress - own.phases[r].stress).norm(), 1e-3);
    }
  }
}

TEST(WeaveModel, ExchangeOfTheFractionsExchangesTheAxes) {
  WeaveModel model(1);
  WeaveDescription weave = smallWeave();
  weave.fillFraction = 0.45;
  weave.warpFraction = 0.3;
  WeaveDescription turned = weave;
  std::swap(turned.fillFraction, turned.warpFraction);
  const CellResponse a = model.response(weave, constituents());
  const CellResponse b = model.response(turned, constituents());
  EXPECT_EQ(a.stiffness(k11, k11), b.stiffness(k22, k22));
  EXPECT_EQ(a.compliance(k11, k22), b.compliance(k22, k11));
  EXPECT_EQ(a.expansion(k22), b.expansion(k11));
}

}  // namespace
}  // namespace kx
