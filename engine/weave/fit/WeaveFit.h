#ifndef KX_WEAVE_FIT_WEAVEFIT_H
#define KX_WEAVE_FIT_WEAVEFIT_H

#include "fit/UnidirectionalFit.h"
#include "weave/model/WeaveModel.h"

namespace kx {

/// A woven ply with its fiber and matrix.
struct WeaveMaterials {
  Properties lamina;
  Properties fiber;
  Properties matrix;
};

struct WeaveFitResult {
  WeaveMaterials materials;  ///< fitted constituents, and the ply that they give
  FitSummary mechanical;
  FitSummary thermal;
};

/// Fits fiber and matrix to a measured woven ply: first the elastic constants to those of the nine
/// mechanical constants that are given (> 0), then the expansions to those that are given (not 0).
///
/// Every step solves the six strains of the unit cell once; their fields also give the derivatives
/// of the ply's stiffness, exact to first order (hill1963), so that the steps in between cost
/// nothing. What the targets do not determine stays close to the start values. Measured weaves
/// often fit no geometry exactly; then the fit stops where the deviations and the distance from
/// the start balance (5 % in a modulus weighs as much as 50 % in a constituent).
/// The matrix is fitted in the symmetry that matrixStart() recognises. The hook is called after
/// every field solve, with their number. The returned ply is what WeaveModel::response() gives.
///
/// When the numbers make no sense, the constituents come back as they were, with 0 iterations and a
/// final error not below the initial one. The ply then is what they give if they give one, else the
/// one that was passed in. Numbers too large or too small for the model make no sense, either;
/// where only the expansions are, those of the ply stay as they were passed in.
WeaveFitResult fitWeave(WeaveModel& model,
                        const WeaveDescription& weave,
                        const WeaveMaterials& given,
                        const FitOptions& options);

}  // namespace kx

#endif
