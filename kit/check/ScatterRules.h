// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_SCATTERRULES_H
#define LAMKIT_CHECK_SCATTERRULES_H

#include "check/Reading.h"
#include "check/Report.h"

namespace lamkit {

/// A VARIATION that has just been read, and the keyword whose property it varies: "scatter", and
/// "unknown-text" for a PROP that the keyword has not.
void checkScatter(const Reading& reading,
                  const abqinp::Keyword& variation,
                  const abqinp::Keyword& owner,
                  Report& report);

}  // namespace lamkit

#endif
