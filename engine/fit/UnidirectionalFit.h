#ifndef KX_FIT_UNIDIRECTIONALFIT_H
#define KX_FIT_UNIDIRECTIONALFIT_H

#include "elastic/Properties.h"
#include "fit/FitSummary.h"

namespace kx {

/// What a fit is given besides the materials.
struct FitOptions {
  /// Errors that make a fit count as converged; they never end one early.
  double maximumMechanicalError = 1e-3;
  double maximumThermalError = 1e-3;
  bool isotropicMatrix = false;  ///< keep the matrix isotropic whatever its start values say
  ProgressHook progress;
};

/// A unidirectional lamina with its fiber and matrix.
struct UnidirectionalMaterials {
  Properties lamina;
  Properties fiber;
  Properties matrix;
};

struct UnidirectionalFitResult {
  UnidirectionalMaterials materials;  ///< fitted constituents, and the lamina that they give
  FitSummary mechanical;
  FitSummary thermal;
};

/// Fits fiber and matrix to a measured unidirectional lamina: first the elastic constants to E11,
/// E22, v12, v23 and G12, then the expansions to A11 and A22.
///
/// `given` holds the measured lamina and the start values of the constituents, any consistent unit
/// of stress. A lamina constant <= 0 (an expansion of 0) is not given. The fiber is fitted as
/// transversely isotropic about 1, the matrix in the symmetry that matrixStart() recognises. Five
/// constants do not determine seven or ten: what they leave open stays close to the start values,
/// see minimumNormFit(). All results are admissible. Errors are root mean squares of the relative
/// deviations of the constants that are given.
///
/// When the numbers make no sense (not finite, an inadmissible start, `fiberFraction` outside
/// (0, 1), nothing given), the constituents come back as they were, with 0 iterations and a final
/// error not below the initial one. The lamina then is what they give if they are admissible, else
/// the one that was passed in. Expansions too large for the model stay as they are, in the lamina,
/// too.
UnidirectionalFitResult fitUnidirectional(double fiberFraction,
                                          const UnidirectionalMaterials& given,
                                          const FitOptions& options);

}  // namespace kx

#endif
