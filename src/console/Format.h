// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_CONSOLE_FORMAT_H
#define LAMCRAFT_CONSOLE_FORMAT_H

#include <cstdint>
#include <locale>
#include <string>
#include <string_view>

namespace lamcraft::console {

/// What stands between the items of a printed list: "; " for German users, where the comma is the
/// decimal mark, else ", ". Read from the global locale, see withListSeparator(); a locale that
/// carries none gives ", ".
std::string listSeparator();

/// `base` with the list separator of the user whose locale the standard library calls
/// `userLocaleName`: "; " for exactly "German_Germany.1252" and "de_DE.UTF-8", else ", ".
std::locale withListSeparator(const std::locale& base, std::string_view userLocaleName);

/// A number as property lines show it: scientific, three decimals, right-aligned in ten characters,
/// with the decimal mark of the global locale. "1.500e+05" comes out with one leading blank.
std::string scientific(double value);

/// A number as the user of the global locale reads it: at most six significant digits, the
/// locale's decimal mark and digit grouping, no padding.
std::string display(double value);

/// The same for the wide console.
std::wstring wideDisplay(double value);

/// A whole number with the digit grouping of the global locale, no padding.
std::string display(std::int64_t value);
std::wstring wideDisplay(std::int64_t value);

}  // namespace lamcraft::console

#endif
