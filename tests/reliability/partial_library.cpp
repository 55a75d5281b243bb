// A micromechanics library that has but one of its functions.

#include "micromech/kxdriver.h"

void SETISOFLAG(const int32_t* const /*isotropic*/) {}
