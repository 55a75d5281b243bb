// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_COMPOSITE_SOLVECHECK_H
#define LAMCRAFT_COMPOSITE_SOLVECHECK_H

#include <string>

#include "model/EnvironmentRecord.h"

namespace lamcraft {

/// The property set of the environment that the library has answered no numbers in: "lamina",
/// "fiber", "matrix" or "damage state 7"; empty when there is none. Infinity counts as a number.
/// Errors, result rows, prefail constants and decompositions are the library's own affair.
[[nodiscard]] std::string setWithoutNumbers(const EnvironmentRecord& environment);

}  // namespace lamcraft

#endif
