// SPDX-License-Identifier: BSD-3-Clause
#include "contract/EngineState.h"

#include <limits>

#include <gtest/gtest.h>

namespace {

using kx::CompositeKind;
constexpr std::int32_t kUnidirectional = 2;
constexpr std::int32_t kWoven = 3;
constexpr std::int32_t kMechanical = 1;
constexpr std::int32_t kThermal = 2;

TEST(EngineState, MaximumErrorsAreAThousandthAtFirst) {
  const kx::EngineState state;
  for (const auto kind : {CompositeKind::unidirectional, CompositeKind::woven}) {
    EXPECT_EQ(state.maximumErrors(kind).mechanical, 1e-3);
    EXPECT_EQ(state.maximumErrors(kind).thermal, 1e-3);
  }
}

TEST(EngineState, EveryKindAndFitHasItsOwnMaximumError) {
  kx::EngineState state;
  state.setMaximumError(kUnidirectional, kMechanical, 0.1);
  state.setMaximumError(kUnidirectional, kThermal, 0.2);
  state.setMaximumError(kWoven, kMechanical, 0.3);
  state.setMaximumError(kWoven, kThermal, 0.4);
  EXPECT_EQ(state.maximumErrors(CompositeKind::unidirectional).mechanical, 0.1);
  EXPECT_EQ(state.maximumErrors(CompositeKind::unidirectional).thermal, 0.2);
  EXPECT_EQ(state.maximumErrors(CompositeKind::woven).mechanical, 0.3);
  EXPECT_EQ(state.maximumErrors(CompositeKind::woven).thermal, 0.4);
}

TEST(EngineState, WhatIsNoMaximumErrorIsIgnored) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  kx::EngineState state;
  for (const double error : {0.0, -1.0, kNan, kInfinity}) {
    state.setMaximumError(kUnidirectional, kMechanical, error);
    state.setMaximumError(kWoven, kThermal, error);
  }
  for (const std::int32_t unknown : {0, 3, -1}) {
    state.setMaximumError(kUnidirectional, unknown, 0.5);
    state.setMaximumError(kWoven, unknown, 0.5);
  }
  for (const std::int32_t unknown : {0, 1, 4}) {
    state.setMaximumError(unknown, kMechanical, 0.5);
    state.setMaximumError(unknown, kThermal, 0.5);
  }
  for (const auto kind : {CompositeKind::unidirectional, CompositeKind::woven}) {
    EXPECT_EQ(state.maximumErrors(kind).mechanical, 1e-3);
    EXPECT_EQ(state.maximumErrors(kind).thermal, 1e-3);
  }
}

TEST(EngineState, NotedWeaveIsTakenOnceAtMost) {
  kx::EngineState state;
  EXPECT_FALSE(state.takeIntactWeave().has_value());
  kx::WeaveDecomposition weave;
  weave.fill(0, 0) = 7.0;
  state.noteIntactWeave(weave);
  const auto taken = state.takeIntactWeave();
  ASSERT_TRUE(taken.has_value());
  EXPECT_EQ(taken->fill(0, 0), 7.0);
  EXPECT_FALSE(state.takeIntactWeave().has_value());
  state.noteIntactWeave(weave);
  state.dropIntactWeave();
  EXPECT_FALSE(state.takeIntactWeave().has_value());
}

}  // namespace
