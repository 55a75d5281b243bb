// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_STARTRULES_H
#define LAMKIT_CHECK_STARTRULES_H

#include "check/Reading.h"
#include "check/Report.h"

namespace lamkit {

/// "start-far": the ply that the start values of fiber and matrix predict, against LAMINA. The sets
/// and the fractions must be sound. Of a woven ply that is one solution of its unit cell.
void checkStart(const Reading& reading, const EnvironmentKeywords& environment, Report& report);

}  // namespace lamkit

#endif
