// A micromechanics library that has but one of its functions.

#include "lamcraft/kxdriver.h"

void SETISOFLAG(const int32_t* const /*isotropic*/) {}
