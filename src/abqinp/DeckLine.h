// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_ABQINP_DECKLINE_H
#define LAMCRAFT_ABQINP_DECKLINE_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace abqinp {

/// What stands between two commas of a line.
struct Value {
  /// In upper case and without white space, as the C locale has them, but for what stands in double
  /// quotes, and for all that follows a quote which nothing closes. Bytes above 127 stay.
  std::string text;
  /// Where it begins in the line as the deck has it, in bytes from 1; an empty value begins where
  /// the comma or the end of the line behind it stands.
  std::size_t column;
};

/// Cuts a line at every comma, quoted or not: "1,2," has three values, a blank line has none. One
/// trailing carriage return does not count.
std::vector<Value> valuesOf(std::string_view line);

/// Whether the first "*" of the line is followed by another one.
bool isCommentLine(std::string_view line) noexcept;

/// Whether the line holds nothing but white space.
bool isBlankLine(std::string_view line) noexcept;

/// Whether the line begins with a "*", blanks aside.
bool isKeywordLine(std::string_view line) noexcept;

/// The line without a trailing carriage return.
std::string_view withoutCarriageReturn(std::string_view line) noexcept;

}  // namespace abqinp

#endif
