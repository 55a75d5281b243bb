// SPDX-License-Identifier: BSD-3-Clause
// The contract's functions for unidirectional laminae.

#include <algorithm>

#include "contract/Arguments.h"
#include "contract/EngineState.h"
#include "contract/FitExchange.h"
#include "elastic/Properties.h"
#include "fatigue/UnidirectionalFatigue.h"
#include "fit/Constituents.h"
#include "fit/UnidirectionalFit.h"
#include "lamcraft/kxdriver.h"
#include "lamina/Concentration.h"
#include "lamina/UnidirectionalLamina.h"
#include "shear/MatrixDegradation.h"
#include "shear/ShearCurve.h"

namespace {

using kx::Properties;

/// All zeros, which no fatigue fit accepts, where the constituents make no lamina.
kx::MatrixConcentration matrixConcentration(const kx::FittedMaterials& materials,
                                            double fiberFraction) {
  const kx::Constituents phases{kx::transverselyIsotropic(materials.fiber),
                                kx::transverselyIsotropic(materials.matrix)};
  if (!kx::makeALamina(phases, fiberFraction)) {
    return {};
  }
  const auto lamina = kx::homogenise(phases.fiber, phases.matrix, fiberFraction);
  const auto field = kx::concentration(phases.matrix, lamina.matrix, lamina.effective);
  return {field.stress(kx::k11, kx::k11), field.stress(kx::k22, kx::k22)};
}

/// T1 C1 T2 C2 S12 S23.
kx::PlyStrengths plyStrengths(const double* values) {
  return {{values[0], values[1]}, {values[2], values[3]}, values[4]};
}

}  // namespace

void UNI_OPTIMIZATION(const double* fiberVolumeFraction,
                      double* lamina,
                      double* fiber,
                      double* matrix,
                      const double* temperature,
                      const int32_t* snCount,
                      const double* sn,
                      double* fatigueLongitudinal,
                      double* fatigueTransverse,
                      const double* strengths,
                      double* errors,
                      int32_t* iterations) {
  if (!kx::areGiven(fiberVolumeFraction, lamina, fiber, matrix, errors, iterations)) {
    return;
  }
  const kx::Outputs outputs{{lamina, kx::kPropertyCount},
                            {fiber, kx::kPropertyCount},
                            {matrix, kx::kPropertyCount},
                            {fatigueLongitudinal, 6},
                            {fatigueTransverse, 6},
                            {errors, 4}};
  kx::guarded(outputs, [&] {
    const kx::FittedMaterials given{
        kx::propertiesFrom(lamina), kx::propertiesFrom(fiber), kx::propertiesFrom(matrix)};
    kx::EngineState::instance().status().begin();
    const auto result = kx::fitUnidirectional(
        *fiberVolumeFraction, given, kx::fitOptions(kx::CompositeKind::unidirectional));
    kx::copyTo(result.materials.lamina, lamina);
    kx::copyTo(result.materials.fiber, fiber);
    kx::copyTo(result.materials.matrix, matrix);
    kx::writeSummary(result.mechanical, errors, iterations);
    kx::writeSummary(result.thermal, errors + 2, iterations + 1);
    if (!kx::areGiven(temperature, fatigueLongitudinal, fatigueTransverse, strengths)) {
      return;
    }
    const auto fatigue =
        kx::fitUnidirectionalFatigue(kx::snRecordsFrom(sn, snCount),
                                     *temperature,
                                     plyStrengths(strengths),
                                     matrixConcentration(result.materials, *fiberVolumeFraction));
    kx::copyTo(fatigue.longitudinal.constants, fatigueLongitudinal);
    kx::copyTo(fatigue.transverse.constants, fatigueTransverse);
  });
}

void PREFAIL(const double* fiberVolumeFraction,
             const double* matrix,
             const double* fiber,
             const double* /*lamina*/,
             const double* shearStrength,
             const double* stress,
             const double* strain,
             const int32_t* pointCount,
             double* m,
             double* b,
             double* thr,
             double* c2mdeg,
             int32_t* failed,
             int32_t* code) {
  if (!kx::areGiven(fiberVolumeFraction, matrix, fiber, shearStrength, m, b, thr, c2mdeg) ||
      !kx::areGiven(failed, code)) {
    return;
  }
  kx::guarded({{m, 1}, {b, 1}, {thr, 1}, {c2mdeg, 3}}, [&] {
    *failed = 1;
    const auto reduction =
        kx::reduceShearCurve(kx::shearPointsFrom(stress, strain, pointCount), *shearStrength);
    const auto degradation = kx::unidirectionalMatrixDegradation(*fiberVolumeFraction,
                                                                 kx::propertiesFrom(fiber).g12,
                                                                 kx::propertiesFrom(matrix).g12,
                                                                 reduction.lowestDegradation);
    std::copy(degradation.begin(), degradation.end(), c2mdeg);
    kx::copyTo(reduction, m, b, thr, failed, code);  // last: an exception is a failure
  });
}
