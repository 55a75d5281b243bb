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
  struct Rest {
    kx::WeaveModel& weaves;
    ~Rest() { weaves.team().rest(); }
  } const rest{kx::EngineState::instance().weaves()};
  work(rest.weaves);
}

/// Writes one slot of a decomposition block and returns the next.
double* writeSlot(const kx::Concentration& concentration, double* slot) {
  slot = std::copy_n(concentration.stress.data(), 36, slot);  // Eigen stores by columns
  slot = std::copy_n(concentration.strain.data(), 36, slot);
  slot = std::copy_n(concentration.thermalStress.data(), 6, slot);
  return std::copy_n(concentration.thermalStrain.data(), 6, slot);
}

constexpr std::size_t kSlot = 84;

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
  if (!kx::areGiven(pocketCode, fillCode, warpCode, harness) ||
      !kx::areGiven(towFractions, fiberFractionInTow, fiber, matrix) ||
      !kx::areGiven(fiberDegradation, matrixDegradation, composite, matrixPocket, fill, warp) ||
      !kx::areGiven(fillFiber, fillMatrix, warpFiber, warpMatrix) ||
      !kx::areGiven(unitCellBlock, fillBlock, warpBlock)) {
    return;
  }
  constexpr std::size_t kSet = kx::kPropertyCount;
  const kx::Outputs outputs{{composite, kSet},
                            {matrixPocket, kSet},
                            {fill, kSet},
                            {warp, kSet},
                            {fillFiber, kSet},
                            {fillMatrix, kSet},
                            {warpFiber, kSet},
                            {warpMatrix, kSet},
                            {unitCellBlock, 4 * kSlot},
                            {fillBlock, 2 * kSlot},
                            {warpBlock, 2 * kSlot}};
  kx::guarded(outputs, [&] {
    kx::fillWith(std::numeric_limits<double>::quiet_NaN(), outputs);
    const auto weave = weaveFrom(harness, towFractions, fiberFractionInTow);
    const auto materials = constituentsFrom(fiber, matrix);
    if (!makeAPly(weave, materials)) {
      return;
    }
    withWeaves([&](kx::WeaveModel& weaves) {
      const auto state = kx::damageState(weaves,
                                         weave,
                                         materials.fiber,
                                         materials.matrix,
                                         {*pocketCode, *fillCode, *warpCode},
                                         {*fiberDegradation, *matrixDegradation});
      if (!kx::isAdmissible(state)) {
        return;
      }
      kx::copyTo(state.composite, composite);
      kx::copyTo(state.pocket, matrixPocket);
      kx::copyTo(state.fill, fill);
      kx::copyTo(state.warp, warp);
      kx::copyTo(state.fillFiber, fillFiber);
      kx::copyTo(state.fillMatrix, fillMatrix);
      kx::copyTo(state.warpFiber, warpFiber);
      kx::copyTo(state.warpMatrix, warpMatrix);
      writeSlot(state.inInterface,
                writeSlot(state.inWarp,
                          writeSlot(state.inPocket, writeSlot(state.inFill, unitCellBlock))));
      writeSlot(state.matrixInFill, writeSlot(state.fiberInFill, fillBlock));
      writeSlot(state.matrixInWarp, writeSlot(state.fiberInWarp, warpBlock));
    });
  });
}
