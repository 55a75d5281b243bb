// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_REPORT_SHEARCURVES_H
#define LAMKIT_REPORT_SHEARCURVES_H

#include <optional>
#include <vector>

#include "folder/MaterialData.h"
#include "shear/SecantLaw.h"

namespace lamkit {

/// A measured shear curve beside its law.
struct ShearChart {
  std::vector<kx::ShearPoint> measured;
  std::vector<double> residuals;    ///< measured stress less that of the law at the same strain
  std::vector<kx::ShearPoint> law;  ///< from zero to the largest strain that was measured
};

/// The curve of an environment; nothing where it has no law, or one without numbers.
[[nodiscard]] std::optional<ShearChart> shearChart(const EnvironmentData& environment,
                                                   bool isWoven);

}  // namespace lamkit

#endif
