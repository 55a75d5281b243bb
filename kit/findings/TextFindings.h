// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_FINDINGS_TEXTFINDINGS_H
#define LAMKIT_FINDINGS_TEXTFINDINGS_H

#include <ostream>
#include <vector>

#include "findings/Finding.h"

namespace lamkit {

/// Writes one finding on a line of its own, as compilers do:
/// "my.qdk:17:1: error: LAMINA E11 is 126 Pa [unit-slip]", without numbers where there is no place.
/// `color` gives the severity a colour by terminal sequences. Control characters of the deck's text
/// are shown as "?", so that no deck steers the terminal.
void writeText(std::ostream& out, const Finding& finding, bool color);

/// Writes all findings in their order.
void writeText(std::ostream& out, const std::vector<Finding>& findings, bool color);

/// A sentence that counts what was found, such as "2 errors, 1 warning, 0 notes".
[[nodiscard]] std::string countsOf(const std::vector<FileFindings>& files);

}  // namespace lamkit

#endif
