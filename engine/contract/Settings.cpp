// SPDX-License-Identifier: BSD-3-Clause
// The contract's functions that set and ask: maximum errors, isotropy, status, default properties.

#include "contract/Arguments.h"
#include "contract/EngineState.h"
#include "elastic/Properties.h"
#include "lamcraft/kxdriver.h"
#include "systems/MaterialSystems.h"

void SETMAXERROR(const int32_t* compositeKind,
                 const int32_t* selector,
                 const double* maximumError) {
  if (kx::areGiven(compositeKind, selector, maximumError)) {
    kx::EngineState::instance().setMaximumError(*compositeKind, *selector, *maximumError);
  }
}

void SETISOFLAG(const int32_t* isotropic) {
  if (isotropic != nullptr) {
    kx::EngineState::instance().setMatrixIsotropic(*isotropic != 0);
  }
}

int32_t INSITU_STATUS(int32_t* iteration, double* error) {
  const auto status = kx::EngineState::instance().status().snapshot();
  if (iteration != nullptr) {
    *iteration = status.iteration;
  }
  if (error != nullptr) {
    *error = status.error;
  }
  return 0;
}

void FHT_GETDEFPROPS(
    const int32_t* system, double* fiber, double* matrix, double* value, double* block) {
  if (!kx::areGiven(system, fiber, matrix)) {
    return;
  }
  const auto defaults = kx::systemDefaults(*system);
  kx::copyTo(defaults.fiber, fiber);
  kx::copyTo(defaults.matrix, matrix);
  // nothing of the engine belongs into these two; they are defined all the same
  if (value != nullptr) {
    *value = 0.0;
  }
  if (block != nullptr) {
    *block = 0.0;
  }
}
