// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_STRENGTHRULES_H
#define LAMKIT_CHECK_STRENGTHRULES_H

#include "check/Reading.h"
#include "check/Report.h"

namespace lamkit {

/// STRENGTHS, CRITICALINVARIANTS, FRACTURE and DELAM of one environment: "out-of-range",
/// "unit-slip", "implausible" and "swapped". `hasSets`: the property sets can be computed with.
void checkStrengths(const Reading& reading,
                    const EnvironmentKeywords& environment,
                    bool hasSets,
                    Report& report);

}  // namespace lamkit

#endif
