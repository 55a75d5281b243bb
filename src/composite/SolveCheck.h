#ifndef LAMCRAFT_COMPOSITE_SOLVECHECK_H
#define LAMCRAFT_COMPOSITE_SOLVECHECK_H

#include "model/EnvironmentRecord.h"

namespace lamcraft {

/// Whether what the library has answered for the environment, and the data files show, are numbers:
/// errors, properties, fatigue constants, prefail constants where there is a shear curve, damage
/// states. Infinity counts as one. A library that fails, out of memory for example, answers none.
[[nodiscard]] bool holdsNumbers(const EnvironmentRecord& environment);

}  // namespace lamcraft

#endif
