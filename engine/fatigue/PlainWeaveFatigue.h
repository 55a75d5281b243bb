// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FATIGUE_PLAINWEAVEFATIGUE_H
#define KX_FATIGUE_PLAINWEAVEFATIGUE_H

#include <vector>

#include "elastic/Voigt.h"
#include "fatigue/UnidirectionalFatigue.h"

namespace kx {

/// Static strengths of a woven lamina [Pa] at the knee of its curve (first cracks across the tows)
/// and at its end; <= 0: not given.
struct WeaveStrengths {
  SensedStrength knee;
  SensedStrength ultimate;
  double kneeShear = 0.0;
  double ultimateShear = 0.0;
};

/// Stress concentrations of an intact plain weave: mean tow stress per overall stress (composite
/// axes), and mean matrix stress per tow stress (tow axes).
struct WeaveDecomposition {
  Matrix6 fill = Matrix6::Zero();
  Matrix6 warp = Matrix6::Zero();
  Matrix6 fillMatrix = Matrix6::Zero();
  Matrix6 warpMatrix = Matrix6::Zero();
};

/// Matrix stress in a tow under a unit overall stress, in the tow's axes.
struct TowMatrixStress {
  double fillAlong = 0.0;   ///< along the fill tow, load along the fill
  double warpAlong = 0.0;   ///< along the warp tow, load along the warp
  double warpAcross = 0.0;  ///< across the warp tow, load along the fill
};

/// The chain composite -> tow -> matrix; the warp's tow axes are turned by 90 degrees about 3.
TowMatrixStress towMatrixStress(const WeaveDecomposition& weave);

/// Fits the bond constants of the matrix of a plain weave.
///
/// Longitudinal: records along fill or warp and the ultimate strength, through the matrix stress
/// along the loaded tow. Transverse: all other records and the knee strength, through the matrix
/// stress across the tow that the load crosses; the larger of the two normal stresses and the shear
/// drive as in a lamina, with the knee strengths for S22 and S12. An ultimate strength stands in
/// for a knee strength that is not given. temperature [K].
FatigueFit fitPlainWeaveFatigue(const std::vector<SnRecord>& records,
                                double temperature,
                                const WeaveStrengths& strengths,
                                const WeaveDecomposition& weave);

}  // namespace kx

#endif
