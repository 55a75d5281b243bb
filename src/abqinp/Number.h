// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_ABQINP_NUMBER_H
#define LAMCRAFT_ABQINP_NUMBER_H

#include <cstdint>
#include <string_view>

namespace abqinp {

/// The number at the start of `text`, exactly as a decimal string input stream in the classic
/// locale extracts it: leading white space is skipped, whatever follows the number is ignored
/// ("12ABC" is 12). The program's locale has no influence.
///
/// Raises std::invalid_argument with `text` as its message where the stream would fail: no number,
/// an exponent without digits ("1E"), a value too large. Too small a value is 0 or denormal.
double toDouble(std::string_view text);

/// The same for a 32-bit integer; "1.5" is 1, a value outside 32 bits fails.
std::int32_t toInt(std::string_view text);

}  // namespace abqinp

#endif
