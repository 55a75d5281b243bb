// The contract's functions for woven laminae. Until the voxel model stands behind them, they answer
// as a fit does that found nothing to start from.

#include <algorithm>

#include "driver/Arguments.h"
#include "driver/EngineState.h"
#include "micromech/kxdriver.h"

void WEAVE_OPTIMIZATION(const int32_t* /*harness*/,
                        const double* /*towFractions*/,
                        const double* /*fiberFractionInTow*/,
                        double* /*lamina*/,
                        double* /*fiber*/,
                        double* /*matrix*/,
                        double* errors,
                        int32_t* iterations,
                        const char* /*text1*/,
                        const char* /*folder*/,
                        const char* /*text3*/,
                        const int32_t* /*zero*/,
                        const int32_t* /*satin*/) {
  kx::EngineState::instance().dropIntactWeave();
  if (kx::areGiven(errors, iterations)) {
    std::fill_n(errors, 4, kx::kNoFitError);
    std::fill_n(iterations, 2, 0);
  }
}

void WEAVE_PREFAIL(const int32_t* /*harness*/,
                   const double* /*towFractions*/,
                   const double* /*fiberFractionInTow*/,
                   const double* /*matrix*/,
                   const double* /*fiber*/,
                   const double* /*lamina*/,
                   const double* /*shearStrength*/,
                   const double* /*stress*/,
                   const double* /*strain*/,
                   const char* /*folder*/,
                   const int32_t* /*pointCount*/,
                   double* /*m*/,
                   double* /*b*/,
                   double* /*thr*/,
                   double* /*c2mdeg*/,
                   int32_t* failed,
                   int32_t* code,
                   const int32_t* /*satin*/) {
  if (kx::areGiven(failed, code)) {
    *failed = 1;
    *code = 0;
  }
}

void WEAVE_DAMAGE_STATE(int32_t* /*pocketCode*/,
                        int32_t* /*fillCode*/,
                        int32_t* /*warpCode*/,
                        const int32_t* /*harness*/,
                        const double* /*towFractions*/,
                        const double* /*fiberFractionInTow*/,
                        const double* /*fiber*/,
                        const double* /*matrix*/,
                        const double* /*fiberDegradation*/,
                        const double* /*matrixDegradation*/,
                        double* /*composite*/,
                        double* /*matrixPocket*/,
                        double* /*fill*/,
                        double* /*warp*/,
                        double* /*fillFiber*/,
                        double* /*fillMatrix*/,
                        double* /*warpFiber*/,
                        double* /*warpMatrix*/,
                        double* /*unitCellBlock*/,
                        double* /*fillBlock*/,
                        double* /*warpBlock*/,
                        const int32_t* /*snCount*/,
                        const char* /*text1*/,
                        const char* /*folder*/,
                        const char* /*text3*/,
                        const int32_t* /*zero*/,
                        const int32_t* /*satin*/) {}
