// SPDX-License-Identifier: BSD-3-Clause
// The contract's functions for woven laminae.

#include <algorithm>
#include <limits>

#include "contract/Arguments.h"
#include "contract/EngineState.h"
#include "contract/FitExchange.h"
#include "elastic/Properties.h"
#include "fit/Constituents.h"
#include "fit/MatrixSymmetry.h"
#include "lamcraft/kxdriver.h"
#include "shear/MatrixDegradation.h"
#include "shear/ShearCurve.h"
#include "weave/damage/DamageState.h"
#include "weave/damage/ShearSoftening.h"
#include "weave/fit/WeaveFit.h"

namespace {

kx::WeaveDescription weaveFrom(const std::int32_t* harness,
                               const double* towFractions,
                               const double* fiberFractionInTow) {
  kx::WeaveDescription weave;
  weave.harness = *harness;
  weave.fillFraction = towFractions[0];
  weave.warpFraction = towFractions[1];
  weave.fiberFraction = *fiberFractionInTow;
  return weave;
}

kx::Constituents constituentsFrom(const double* fiber, const double* matrix) {
  const bool isotropic = kx::EngineState::instance().isMatrixIsotropic();
  return {kx::transverselyIsotropic(kx::propertiesFrom(fiber)),
          kx::matrixStart(kx::propertiesFrom(matrix), isotropic).constants};
}

bool makeAPly(const kx::WeaveDescription& weave, const kx::Constituents& materials) {
  return weave.isSensible() && kx::isAdmissible(materials);
}

/// Runs `work` on the engine's weaves; no thread is left when it is done.
template <typename Work>
void withWeaves(const Work& work) {
  struct WorkersEnd {
    kx::WeaveModel& weaves;
    ~WorkersEnd() { weaves.team().endWorkers(); }
  } const end{kx::EngineState::instance().weaves()};
  work(end.weaves);
}

/// What a damage state is of.
struct DamageQuestion {
  kx::WeaveDescription weave;
  kx::Constituents materials;
  kx::DamageCodes codes;
  kx::DegradationFactors factors;
};

/// Where the answer of WEAVE_DAMAGE_STATE goes.
struct DamageAnswer {
  double* composite;
  double* pocket;
  double* fill;
  double* warp;
  double* fillFiber;
  double* fillMatrix;
  double* warpFiber;
  double* warpMatrix;
  double* unitCellBlock;
  double* fillBlock;
  double* warpBlock;
};

void writeSlot(const kx::Concentration& phase, double* const block, const std::size_t slot) {
  double* const first = block + KX_SLOT_LENGTH * slot;
  std::copy_n(phase.stress.data(), 36, first + KX_SLOT_STRESS);  // Eigen stores by columns
  std::copy_n(phase.strain.data(), 36, first + KX_SLOT_STRAIN);
  std::copy_n(phase.thermalStress.data(), 6, first + KX_SLOT_THERMAL_STRESS);
  std::copy_n(phase.thermalStrain.data(), 6, first + KX_SLOT_THERMAL_STRAIN);
}

void write(const kx::DamageState& state, const DamageAnswer& to) {
  kx::copyTo(state.composite, to.composite);
  kx::copyTo(state.pocket, to.pocket);
  kx::copyTo(state.fill, to.fill);
  kx::copyTo(state.warp, to.warp);
  kx::copyTo(state.fillFiber, to.fillFiber);
  kx::copyTo(state.fillMatrix, to.fillMatrix);
  kx::copyTo(state.warpFiber, to.warpFiber);
  kx::copyTo(state.warpMatrix, to.warpMatrix);
  writeSlot(state.inFill, to.unitCellBlock, KX_CELL_FILL);
  writeSlot(state.inPocket, to.unitCellBlock, KX_CELL_POCKET);
  writeSlot(state.inWarp, to.unitCellBlock, KX_CELL_WARP);
  writeSlot(state.inInterface, to.unitCellBlock, KX_CELL_INTERFACE);
  writeSlot(state.fiberInFill, to.fillBlock, KX_TOW_FIBER);
  writeSlot(state.matrixInFill, to.fillBlock, KX_TOW_MATRIX);
  writeSlot(state.fiberInWarp, to.warpBlock, KX_TOW_FIBER);
  writeSlot(state.matrixInWarp, to.warpBlock, KX_TOW_MATRIX);
}

/// NaN everywhere where there is no model.
void answer(const DamageQuestion& question, const DamageAnswer& to) {
  const kx::Outputs outputs{{to.composite, KX_PROPERTY_COUNT},
                            {to.pocket, KX_PROPERTY_COUNT},
                            {to.fill, KX_PROPERTY_COUNT},
                            {to.warp, KX_PROPERTY_COUNT},
                            {to.fillFiber, KX_PROPERTY_COUNT},
                            {to.fillMatrix, KX_PROPERTY_COUNT},
                            {to.warpFiber, KX_PROPERTY_COUNT},
                            {to.warpMatrix, KX_PROPERTY_COUNT},
                            {to.unitCellBlock, KX_CELL_BLOCK_LENGTH},
                            {to.fillBlock, KX_TOW_BLOCK_LENGTH},
                            {to.warpBlock, KX_TOW_BLOCK_LENGTH}};
  kx::guarded(outputs, [&] {
    kx::fillWith(std::numeric_limits<double>::quiet_NaN(), outputs);
    const kx::Constituents& materials = question.materials;
    if (!makeAPly(question.weave, materials)) {
      return;
    }
    withWeaves([&](kx::WeaveModel& weaves) {
      const auto state = kx::damageState(weaves,
                                         question.weave,
                                         materials.fiber,
                                         materials.matrix,
                                         question.codes,
                                         question.factors);
      if (kx::isAdmissible(state)) {
        write(state, to);
      }
    });
  });
}

}  // namespace

void WEAVE_OPTIMIZATION(const int32_t* harness,
                        const double* towFractions,
                        const double* fiberFractionInTow,
                        double* lamina,
                        double* fiber,
                        double* matrix,
                        double* errors,
                        int32_t* iterations,
                        const char* /*text1*/,
                        const char* /*folder*/,
                        const char* /*text3*/,
                        const int32_t* /*zero*/,
                        const int32_t* /*satin*/) {
  kx::EngineState::instance().dropIntactWeave();
  if (!kx::areGiven(errors, iterations)) {
    return;
  }
  std::fill_n(errors, 4, kx::kNoFitError);
  std::fill_n(iterations, 2, 0);
  if (!kx::areGiven(harness, towFractions, fiberFractionInTow, lamina, fiber, matrix)) {
    return;
  }
  const kx::Outputs outputs{{lamina, kx::kPropertyCount},
                            {fiber, kx::kPropertyCount},
                            {matrix, kx::kPropertyCount},
                            {errors, 4}};
  kx::guarded(outputs, [&] {
    const auto weave = weaveFrom(harness, towFractions, fiberFractionInTow);
    const kx::FittedMaterials given{
        kx::propertiesFrom(lamina), kx::propertiesFrom(fiber), kx::propertiesFrom(matrix)};
    kx::EngineState::instance().status().begin();
    withWeaves([&](kx::WeaveModel& weaves) {
      const auto result =
          kx::fitWeave(weaves, weave, given, kx::fitOptions(kx::CompositeKind::woven));
      kx::copyTo(result.materials.lamina, lamina);
      kx::copyTo(result.materials.fiber, fiber);
      kx::copyTo(result.materials.matrix, matrix);
      kx::writeSummary(result.mechanical, errors, iterations);
      kx::writeSummary(result.thermal, errors + 2, iterations + 1);
    });
  });
}

void WEAVE_PREFAIL(const int32_t* harness,
                   const double* towFractions,
                   const double* fiberFractionInTow,
                   const double* matrix,
                   const double* fiber,
                   const double* /*lamina*/,
                   const double* shearStrength,
                   const double* stress,
                   const double* strain,
                   const char* /*folder*/,
                   const int32_t* pointCount,
                   double* m,
                   double* b,
                   double* thr,
                   double* c2mdeg,
                   int32_t* failed,
                   int32_t* code,
                   const int32_t* /*satin*/) {
  if (!kx::areGiven(failed, code)) {
    return;
  }
  *failed = 1;
  *code = 0;
  if (!kx::areGiven(harness, towFractions, fiberFractionInTow, matrix, fiber, shearStrength) ||
      !kx::areGiven(m, b, thr, c2mdeg)) {
    return;
  }
  kx::guarded({{m, 1}, {b, 1}, {thr, 1}, {c2mdeg, 3}}, [&] {
    const auto reduction =
        kx::reduceShearCurve(kx::shearPointsFrom(stress, strain, pointCount), *shearStrength);
    const auto weave = weaveFrom(harness, towFractions, fiberFractionInTow);
    const auto materials = constituentsFrom(fiber, matrix);
    auto degradation = kx::kEqualDegradation;
    if (reduction.verdict == kx::CurveVerdict::reduced && makeAPly(weave, materials)) {
      withWeaves([&](kx::WeaveModel& weaves) {
        degradation = kx::fitMatrixDegradation(
            kx::shearSoftening(weaves.team(), weave, materials.fiber, materials.matrix));
      });
    }
    std::copy(degradation.begin(), degradation.end(), c2mdeg);
    kx::copyTo(reduction, m, b, thr, failed, code);  // last: an exception is a failure
  });
}

void WEAVE_DAMAGE_STATE(int32_t* pocketCode,
                        int32_t* fillCode,
                        int32_t* warpCode,
                        const int32_t* harness,
                        const double* towFractions,
                        const double* fiberFractionInTow,
                        const double* fiber,
                        const double* matrix,
                        const double* fiberDegradation,
                        const double* matrixDegradation,
                        double* composite,
                        double* matrixPocket,
                        double* fill,
                        double* warp,
                        double* fillFiber,
                        double* fillMatrix,
                        double* warpFiber,
                        double* warpMatrix,
                        double* unitCellBlock,
                        double* fillBlock,
                        double* warpBlock,
                        const int32_t* /*snCount*/,
                        const char* /*text1*/,
                        const char* /*folder*/,
                        const char* /*text3*/,
                        const int32_t* /*zero*/,
                        const int32_t* /*satin*/) {
  if (!kx::areGiven(pocketCode, fillCode, warpCode, harness, towFractions, fiberFractionInTow) ||
      !kx::areGiven(fiber, matrix, fiberDegradation, matrixDegradation, composite, matrixPocket) ||
      !kx::areGiven(fill, warp, fillFiber, fillMatrix, warpFiber, warpMatrix) ||
      !kx::areGiven(unitCellBlock, fillBlock, warpBlock)) {
    return;
  }
  answer({weaveFrom(harness, towFractions, fiberFractionInTow),
          constituentsFrom(fiber, matrix),
          {*pocketCode, *fillCode, *warpCode},
          {*fiberDegradation, *matrixDegradation}},
         {composite,
          matrixPocket,
          fill,
          warp,
          fillFiber,
          fillMatrix,
          warpFiber,
          warpMatrix,
          unitCellBlock,
          fillBlock,
          warpBlock});
}
