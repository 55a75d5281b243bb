// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FIT_MATRIXSYMMETRY_H
#define KX_FIT_MATRIXSYMMETRY_H

#include "elastic/TransverselyIsotropic.h"

namespace kx {

/// The symmetries in which a matrix is fitted.
enum class MatrixSymmetry { isotropic, transverselyIsotropic };

/// The matrix from which a fit starts.
struct MatrixStart {
  MatrixSymmetry symmetry = MatrixSymmetry::isotropic;
  TransverselyIsotropic constants;
};

/// Decides in which symmetry a matrix is fitted and puts its start values into that symmetry.
///
/// - Flagged isotropic: E11, v12 and A11 count.
/// - Isotropic to rounding (1e-6): the same.
/// - Isotropic in the plane 1-2, symmetric about axis 3: fitted as isotropic, the only symmetry
///   that it shares with a lamina that is isotropic in 2-3; start at its mean constants.
/// - Anything else: fitted as isotropic in the plane 2-3, start at the means of its constants of
///   the axes 2 and 3.
/// Means are geometric for moduli, arithmetic for ratios and expansions. Inadmissible values are
/// passed on as they are; the caller tests the result.
MatrixStart matrixStart(const Properties& matrix, bool flaggedIsotropic);

}  // namespace kx

#endif
