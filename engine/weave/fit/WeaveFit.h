// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_FIT_WEAVEFIT_H
#define KX_WEAVE_FIT_WEAVEFIT_H

#include <optional>

#include "fit/Assessment.h"
#include "fit/FitResult.h"
#include "weave/model/WeaveModel.h"

namespace kx {

/// Fits fiber and matrix to a measured woven ply: first the elastic constants to those of the nine
/// mechanical constants that are given (> 0), then the expansions to those that are given (not 0).
///
/// Every step solves the six strains of the unit cell once; their fields also give the derivatives
/// of the ply's stiffness, exact to first order (hill1963: the fields are stationary), so that the
/// steps in between cost nothing. Of all constituents that give the ply those are taken that are
/// nearest to the start values, each constant measured by its width (fit/Widths.h). Measured weaves
/// often fit no geometry exactly; then the most probable compromise is taken, where a target of
/// weight w scatters by kWeaveScatter / w. The matrix is fitted in the symmetry that matrixStart()
/// recognises. The hook is called after every field solve, with their number; the last one is that
/// of the returned ply, which is what WeaveModel::response() gives. Without mechanical targets, or
/// thermal ones, the start values stay and the errors are 0.
///
/// Where the model cannot be evaluated at the start (a number that is not finite or too large, an
/// inadmissible set, a weave that is not sensible): noModel().
FitResult fitWeave(WeaveModel& model,
                   const WeaveDescription& weave,
                   const FittedMaterials& given,
                   const FitOptions& options);

/// What fitWeave() with the same arguments, which returned `fitted` (its constituents are looked
/// at, or those of a file that was written from them), knows about its answer. Solves two cells.
/// None where there is no model.
std::optional<Assessment> assess(WeaveModel& model,
                                 const WeaveDescription& weave,
                                 const FittedMaterials& given,
                                 const FittedMaterials& fitted,
                                 const FitOptions& options);

}  // namespace kx

#endif
