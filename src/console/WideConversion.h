// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_CONSOLE_WIDECONVERSION_H
#define LAMCRAFT_CONSOLE_WIDECONVERSION_H

#include <locale>

namespace lamcraft::console {

/// `base` with a conversion of wide characters to bytes that cannot fail. A wide stream whose
/// conversion fails once stays broken for good and takes all later texts with it.
///
/// Characters become bytes as `base` has it, or in UTF-8 where `base` knows ASCII alone (as the
/// locale "C" does). A character that has no place in the encoding becomes a question mark.
/// Reading wide characters goes the same way and keeps its errors.
std::locale withSteadyConversion(const std::locale& base);

}  // namespace lamcraft::console

#endif
