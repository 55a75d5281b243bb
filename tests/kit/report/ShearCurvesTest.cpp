// SPDX-License-Identifier: BSD-3-Clause
#include "report/ShearCurves.h"

#include <gtest/gtest.h>

#include "model/PropertyTables.h"
#include "shear/ShearCurve.h"

namespace lamkit {
namespace {

/// A ply whose curve follows a secant law exactly: G0 5 GPa, d = 1.4 - tau / 75 MPa above 30 MPa.
EnvironmentData plyWithCurve() {
  const kx::SecantLaw law{5e9, -1.0 / 75e6, 1.4, 30e6};
  EnvironmentData environment;
  environment.strengths[static_cast<std::size_t>(lamcraft::UniStrength::s12)].setValue(80e6);
  environment.shearLaw.emplace();
  environment.shearLaw->constants.m = law.m;
  environment.shearLaw->constants.b = law.b;
  environment.shearLaw->constants.thr = law.threshold;
  for (int i = 1; i <= 16; ++i) {
    const double stress = 5e6 * i;
    environment.shearLaw->stress.push_back(stress);
    environment.shearLaw->strain.push_back(law.strainAt(stress));
  }
  return environment;
}

TEST(ShearChart, PutsTheLawThroughPointsThatFollowIt) {
  const auto chart = shearChart(plyWithCurve(), false);
  ASSERT_TRUE(chart);
  ASSERT_EQ(chart->residuals.size(), 16U);
  for (const double residual : chart->residuals) {
    EXPECT_NEAR(residual, 0.0, 80e6 * 1e-9);
  }
  EXPECT_EQ(chart->law.front().stress, 0.0);
  EXPECT_DOUBLE_EQ(chart->law.back().strain, chart->measured.back().strain);
  EXPECT_NEAR(chart->law.back().stress / 80e6, 1.0, 1e-9);
}

TEST(ShearChart, ShowsHowFarAPointIsFromTheLaw) {
  EnvironmentData environment = plyWithCurve();
  environment.shearLaw->stress[11] += 2e6;
  const auto chart = shearChart(environment, false);
  ASSERT_TRUE(chart);
  EXPECT_NEAR(chart->residuals[11], 2e6, 1.0);
}

TEST(ShearChart, NeedsALaw) {
  EnvironmentData environment = plyWithCurve();
  environment.shearLaw.reset();
  EXPECT_FALSE(shearChart(environment, false));
}

}  // namespace
}  // namespace lamkit
