// SPDX-License-Identifier: BSD-3-Clause
// A micromechanics library that has but one of its functions.

#include "lamcraft/kxdriver.h"

void SETISOFLAG(const int32_t* const /*isotropic*/) {}
