// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_COMPOSITE_MICROMECHANICSCALLS_H
#define LAMCRAFT_COMPOSITE_MICROMECHANICSCALLS_H

#include <array>
#include <cstdint>
#include <string>

#include "model/Composite.h"
#include "model/DamageStateRecord.h"
#include "model/EnvironmentRecord.h"
#include "model/MaterialSystem.h"

/// The program's side of the library contract: one function for each function of the library, and
/// no other place that takes addresses for it. Values must be in base units.
namespace lamcraft::micromechanics {

/// What the library says of the running solve.
struct Status {
  bool goOn;  ///< worth asking again; the rest is current only then
  std::int32_t iteration;
  double error;
};

/// How the reduction of a shear curve ended.
struct PrefailOutcome {
  std::int32_t failed = 0;
  std::int32_t code = 0;
};

/// The weave as the library wants it described.
struct WeaveGeometry {
  std::int32_t harness;
  std::array<double, 2> towFractions;  ///< fill, warp
  double fiberFractionInTow;
  double fiberDegradation;
  double matrixDegradation;
};

/// Hands the two maximum errors over, the first one first.
void setMaximumErrors(const Composite& composite);

/// Tells the library whether the matrix of the environment is isotropic.
void setIsotropyFlag(const EnvironmentRecord& environment);

/// The number of the environment's S-N records, as the library takes it.
[[nodiscard]] std::int32_t snCountOf(const EnvironmentRecord& environment);

/// Asks for the status; the one call that may be made from another thread.
[[nodiscard]] Status status();

/// Loads the default fiber and matrix of the system with this code.
[[nodiscard]] MaterialSystem defaultProperties(std::int32_t code, const std::string& name);

/// Fits fiber and matrix to the target lamina; the first two result rows get the fatigue constants.
void fitUnidirectional(double fiberVolumeFraction, EnvironmentRecord& environment);

/// Reduces the environment's shear curve to its prefail constants.
PrefailOutcome reduceUnidirectionalShear(double fiberVolumeFraction,
                                         EnvironmentRecord& environment);

/// Fits fiber and matrix of the tows to the target lamina.
void fitWeave(const WeaveGeometry& weave,
              const std::string& folder,
              EnvironmentRecord& environment);

/// Reduces the environment's shear curve to its prefail constants.
PrefailOutcome reduceWeaveShear(const WeaveGeometry& weave,
                                const std::string& folder,
                                EnvironmentRecord& environment);

/// Fills one damage-state record. snCount: the number of S-N records for a state of the fatigue
/// list, 0 for one of the ordinary list.
void computeDamageState(const WeaveGeometry& weave,
                        const std::string& folder,
                        const EnvironmentRecord& environment,
                        std::int32_t snCount,
                        DamageStateRecord& record);

/// Shows the library one filled fatigue state.
void decomposeForFatigue(DamageStateRecord& record);

/// Fits the fatigue constants of a plain weave into the four result rows.
void fitWeaveFatigue(const WeaveGeometry& weave, EnvironmentRecord& environment);

}  // namespace lamcraft::micromechanics

#endif
