// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FIT_ASSESSMENT_H
#define KX_FIT_ASSESSMENT_H

#include <string_view>
#include <vector>

#include <Eigen/Core>

#include "elastic/Properties.h"

namespace kx {

/// A ply counts as met when its error is below this: far below what any test measures, and above
/// what the digits of a data file lose.
inline constexpr double kMetWithin = 1e-4;

/// What a fit knows about one constant of fiber or matrix. Moduli in the unit of stress of the
/// input, expansions in 1/K.
struct AssessedConstant {
  std::string_view name;  ///< "fiber E11", "matrix K"
  double start = 0.0;
  double fitted = 0.0;
  double width = 0.0;              ///< standard deviation of the start value (fit/Widths.h)
  double z = 0.0;                  ///< the move in widths; a modulus by its logarithm
  double standardDeviation = 0.0;  ///< of the fitted value
  double deviationInWidths = 0.0;  ///< the same, of z
  /// How much of the constant the tests tell: 1 all of it, 0 it is the start value's.
  double resolution = 0.0;
  bool isAtBound = false;  ///< the fit was held back by a bound
};

/// Resistance of a matrix to pressure, and to shear along axis 1.
struct MatrixModuli {
  double bulk = 0.0;
  double shear = 0.0;
};

/// What a fit knows about its answer.
struct Assessment {
  std::vector<AssessedConstant> elastic;  ///< fiber E11 E22 v12 v23 G12; matrix K G, or like fiber
  std::vector<AssessedConstant> expansions;  ///< fiber A11 A22; matrix A, or A11 A22
  Properties predicted;                      ///< the ply that the start values give
  Properties target;                         ///< what was asked for; <= 0 (expansion: 0) not given
  MatrixModuli startMatrix;
  MatrixModuli fittedMatrix;
  bool isExact = false;  ///< the ply is met; else the answer is the most probable compromise

  /// |z| of the elastic constants: the distance from the start in standard deviations.
  [[nodiscard]] double distance() const;
  /// The constant that moved farthest in widths, expansions included.
  [[nodiscard]] const AssessedConstant& farthest() const;
  [[nodiscard]] bool isAnyAtBound() const;
};

/// Bulk and axial shear modulus of a matrix of either symmetry.
MatrixModuli matrixModuli(const Properties& matrix);

/// Scatter of an answer in widths, and what tests tell of it.
struct Uncertainty {
  Eigen::VectorXd standardDeviation;
  Eigen::VectorXd resolution;
};

/// For residuals of the standard deviation `scatter` with the derivatives J at the answer, by
/// unknowns whose start values have the standard deviation 1 (tarantola2005, chapter 3):
/// an exact answer carries the scatter of the tests in full and keeps that of the start in the
/// directions that no test sees, J^+ scatter^2 J^+T + I - J^+ J; a compromise has the posterior
/// covariance P = (J^T J / scatter^2 + I)^-1. Resolution: the diagonal of I - P.
/// Directions with singular values below `rank` of the largest are not seen.
Uncertainty uncertaintyOf(const Eigen::MatrixXd& jacobian,
                          double scatter,
                          bool isExact,
                          double rank = 1e-9);

}  // namespace kx

#endif
