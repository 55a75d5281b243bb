// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FIT_FITSTART_H
#define KX_FIT_FITSTART_H

#include <optional>

#include "fit/Constituents.h"
#include "fit/FitResult.h"
#include "fit/MatrixSymmetry.h"

namespace kx {

/// Where a fit starts.
struct FitStart {
  Constituents constituents;
  MatrixSymmetry symmetry = MatrixSymmetry::isotropic;
};

/// The start that is given, in the symmetries in which it is fitted; none when a number is not
/// finite or a constituent not admissible.
std::optional<FitStart> admissibleStart(const FittedMaterials& given, bool isotropicMatrix);

/// Isotropic to kIsotropicWithin in its elastic constants.
bool isIsotropicFiber(const TransverselyIsotropic& fiber);

}  // namespace kx

#endif
