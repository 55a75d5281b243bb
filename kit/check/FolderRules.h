// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_FOLDERRULES_H
#define LAMKIT_CHECK_FOLDERRULES_H

#include "check/Reading.h"
#include "check/Report.h"

namespace lamkit {

/// "results-folder": whether a run of the deck without a results folder on its command line could
/// write its material. Looks at the file system, from the working folder.
void checkFolder(const Reading& reading, Report& report);

}  // namespace lamkit

#endif
