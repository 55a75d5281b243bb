// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_CURVERULES_H
#define LAMKIT_CHECK_CURVERULES_H

#include "check/Reading.h"
#include "check/Report.h"

namespace lamkit {

/// NLSHEAR of one environment: "shear-curve".
void checkShearCurve(const Reading& reading,
                     const EnvironmentKeywords& environment,
                     Report& report);

/// SNDATA of one environment: "sn-data".
void checkSnData(const Reading& reading, const EnvironmentKeywords& environment, Report& report);

}  // namespace lamkit

#endif
