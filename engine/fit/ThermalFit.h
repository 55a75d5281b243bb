// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FIT_THERMALFIT_H
#define KX_FIT_THERMALFIT_H

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include <Eigen/Core>

#include "fit/FitResult.h"
#include "fit/FitStart.h"

namespace kx {

/// Expansions [1/K] of the composite along 1, 2, 3.
using CompositeExpansion = Eigen::Vector3d;

/// The composite's expansions for given constituents; linear in the constituents' a11 and a22
/// (levin1967), whatever the geometry.
using ExpansionModel = std::function<CompositeExpansion(const Constituents&)>;

/// An expansion that a fit moves.
struct ExpansionUnknown {
  std::string_view name;
  TransverselyIsotropic Constituents::*phase;
  double TransverselyIsotropic::*member;
  double width = 0.0;        ///< one standard deviation of the start value [1/K]
  bool isIsotropic = false;  ///< the phase expands alike in all directions
};

/// A11 and A22 of the fiber, A11 and, unless it is isotropic, A22 of the matrix, with the widths of
/// fit/Widths.h.
std::vector<ExpansionUnknown> expansionUnknowns(const FitStart& start);

/// Change of the composite's expansions when an unknown moves by its width, a column each.
Eigen::Matrix3Xd expansionSensitivity(const ExpansionModel& model,
                                      const Constituents& materials,
                                      const std::vector<ExpansionUnknown>& unknowns);

/// A target of 0 is not given.
double expansionError(const CompositeExpansion& value, const CompositeExpansion& target);

struct ThermalFitResult {
  Constituents constituents;
  CompositeExpansion expansion = CompositeExpansion::Zero();
  FitSummary summary;
};

/// Fits the expansions of fiber and matrix to those of the composite; elastic constants stay.
///
/// Two or three targets do not determine three or four unknowns: of all solutions that meet the
/// targets, the one is taken that moves least, each expansion measured by its width. A target of 0
/// is not given; without any the start values stay, with errors of 0. The model is linear, so that
/// one step is exact. None where the model gives no numbers.
std::optional<ThermalFitResult> fitExpansions(const ExpansionModel& model,
                                              const Constituents& start,
                                              const std::vector<ExpansionUnknown>& unknowns,
                                              const CompositeExpansion& target,
                                              double maximumError);

}  // namespace kx

#endif
