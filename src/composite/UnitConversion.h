// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_COMPOSITE_UNITCONVERSION_H
#define LAMCRAFT_COMPOSITE_UNITCONVERSION_H

#include "model/Composite.h"

namespace lamcraft {

/// Takes the composite and all its environments to base units, in place. Sets of a material
/// system's defaults keep their working values, which are in base units already.
void convertToBaseUnits(Composite& composite);

}  // namespace lamcraft

#endif
