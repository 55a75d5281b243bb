#ifndef KX_FIT_THERMALFIT_H
#define KX_FIT_THERMALFIT_H

#include <functional>

#include <Eigen/Core>

#include "fit/ConstituentSpace.h"
#include "fit/FitSummary.h"

namespace kx {

/// Expansions [1/K] of the composite along 1, 2, 3.
using CompositeExpansion = Eigen::Vector3d;

/// The composite's expansions for given constituents; linear in the constituents' a11 and a22
/// (levin1967), whatever the geometry.
using ExpansionModel = std::function<CompositeExpansion(const Constituents&)>;

struct ThermalFitResult {
  Constituents constituents;
  CompositeExpansion expansion = CompositeExpansion::Zero();
  FitSummary summary;
};

/// Fits the expansions of fiber and matrix to those of the composite; elastic constants stay.
///
/// Two or three targets do not determine three or four unknowns: of all solutions that meet the
/// targets, the one is taken that moves least from the start values, each expansion measured by its
/// own size. A target of 0 is not given. The model is linear, so that one step is exact.
/// Numbers that are not finite: start values, 0 iterations, a final error not below the initial.
ThermalFitResult fitExpansions(const ExpansionModel& model,
                               const Constituents& start,
                               MatrixSymmetry symmetry,
                               const CompositeExpansion& target,
                               double maximumError);

}  // namespace kx

#endif
