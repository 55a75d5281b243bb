// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_NAMERULES_H
#define LAMKIT_CHECK_NAMERULES_H

#include "abqinp/Keyword.h"
#include "check/Report.h"

namespace lamkit {

/// The NAME of MATERIAL, which becomes an XML text and, without a results folder, a folder:
/// "odd-character" for what neither can hold.
void checkName(const abqinp::Keyword& material, Report& report);

}  // namespace lamkit

#endif
