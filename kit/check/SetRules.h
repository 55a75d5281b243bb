// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_SETRULES_H
#define LAMKIT_CHECK_SETRULES_H

#include "check/Reading.h"
#include "check/Report.h"

namespace lamkit {

/// The property sets and the strengths of one environment: "out-of-range", "inadmissible",
/// "unit-slip", "implausible" and "swapped". Answers whether the sets can be computed with: all
/// there, in the right units, admissible.
bool checkSets(const Reading& reading, const EnvironmentKeywords& environment, Report& report);

}  // namespace lamkit

#endif
