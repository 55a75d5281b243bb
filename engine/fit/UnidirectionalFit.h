// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FIT_UNIDIRECTIONALFIT_H
#define KX_FIT_UNIDIRECTIONALFIT_H

#include <optional>

#include "fit/Assessment.h"
#include "fit/FitResult.h"

namespace kx {

/// Fits fiber and matrix to a measured unidirectional lamina: first the elastic constants to E11,
/// E22, v12, v23 and G12, then the expansions to A11 and A22.
///
/// `given` holds the measured lamina and the start values of the constituents, in any consistent
/// unit of stress. The fiber is fitted as transversely isotropic about 1, the matrix in the
/// symmetry that matrixStart() recognises. Five constants do not determine seven or ten: of all
/// constituents that give the lamina those are taken that are nearest to the start values, each
/// constant measured by its width (fit/Widths.h, mostProbableFit()). All results are admissible.
/// Without mechanical targets, or thermal ones, the start values stay and the errors are 0.
///
/// Where the model cannot be evaluated at the start (a number that is not finite or too large, an
/// inadmissible set, `fiberFraction` outside (0, 1)): noModel().
FitResult fitUnidirectional(double fiberFraction,
                            const FittedMaterials& given,
                            const FitOptions& options);

/// What fitUnidirectional() with the same arguments, which returned `fitted` (its constituents are
/// looked at, or those of a file that was written from them), knows about its answer. None where
/// there is no model.
std::optional<Assessment> assess(double fiberFraction,
                                 const FittedMaterials& given,
                                 const FittedMaterials& fitted,
                                 const FitOptions& options);

}  // namespace kx

#endif
