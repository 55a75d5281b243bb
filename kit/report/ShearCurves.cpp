// SPDX-License-Identifier: BSD-3-Clause
#include "report/ShearCurves.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "model/PropertyTables.h"
#include "shear/ShearCurve.h"

namespace lamkit {

namespace {

constexpr int kLawPoints = 60;

/// The in-plane shear strength, at which the engine ends a curve.
double shearStrength(const EnvironmentData& environment, const bool isWoven) {
  const auto place = isWoven ? static_cast<std::size_t>(lamcraft::WeaveStrength::s12)
                             : static_cast<std::size_t>(lamcraft::UniStrength::s12);
  return environment.strengths[place].value();
}

}  // namespace

std::optional<ShearChart> shearChart(const EnvironmentData& environment, const bool isWoven) {
  if (!environment.shearLaw || environment.shearLaw->stress.empty()) {
    return std::nullopt;
  }
  const ShearLaw& data = *environment.shearLaw;
  ShearChart chart;
  double largest = 0.0;
  for (std::size_t i = 0; i < data.stress.size(); ++i) {
    chart.measured.push_back({std::abs(data.stress[i]), std::abs(data.strain[i])});
    largest = std::max(largest, chart.measured.back().strain);
  }
  // The file has the law without its initial modulus, which follows from the same points.
  const kx::ShearReduction reduction =
      kx::reduceShearCurve(chart.measured, shearStrength(environment, isWoven));
  const kx::SecantLaw law{
      reduction.law.initialModulus, data.constants.m, data.constants.b, data.constants.thr};
  if (!(law.initialModulus > 0.0)) {
    return std::nullopt;
  }
  for (int i = 0; i <= kLawPoints; ++i) {
    const double strain = largest * i / kLawPoints;
    chart.law.push_back({law.stressAt(strain), strain});
  }
  for (const kx::ShearPoint& point : chart.measured) {
    chart.residuals.push_back(point.stress - law.stressAt(point.strain));
  }
  return chart;
}

}  // namespace lamkit
