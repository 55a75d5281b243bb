// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_FATIGUE_UNIDIRECTIONALFATIGUE_H
#define KX_FATIGUE_UNIDIRECTIONALFATIGUE_H

#include <vector>

#include "fatigue/DirectionFit.h"
#include "fatigue/DrivingStress.h"

namespace kx {

/// Static strengths of a unidirectional lamina [Pa]; <= 0: not given.
struct PlyStrengths {
  SensedStrength longitudinal;
  SensedStrength transverse;
  double shear = 0.0;
};

/// Mean stress of the matrix per stress of the composite in the same component: the diagonal
/// entries 11 and 22 of the matrix' stress concentration.
struct MatrixConcentration {
  double longitudinal = 0.0;
  double transverse = 0.0;
};

/// The fits of the two directions.
struct FatigueFit {
  DirectionFit longitudinal;
  DirectionFit transverse;
};

/// Fits the bond constants of the matrix of a unidirectional lamina.
///
/// Records within one degree of the fiber set the longitudinal direction, all others the transverse
/// one, driven by sqrt((s sin^2)^2 + (S22/S12)^2 (s sin cos)^2). temperature [K].
FatigueFit fitUnidirectionalFatigue(const std::vector<SnRecord>& records,
                                    double temperature,
                                    const PlyStrengths& strengths,
                                    const MatrixConcentration& matrix);

}  // namespace kx

#endif
