// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_NUMBERTEXT_H
#define LAMKIT_CHECK_NUMBERTEXT_H

#include <string>

namespace lamkit {

/// What the program makes of the text of a value.
struct NumberText {
  bool isEmpty = false;
  bool isNumber = false;
  double number = 0.0;  ///< what is read; 0 where nothing is
  std::string ignored;  ///< what stands behind the number and is not read
};

/// Reads as the program does.
[[nodiscard]] NumberText readNumber(const std::string& text);

/// Whether what stands behind a number changes it: an exponent with D, a second point, digits after
/// a separator or an odd character. Units and words do not.
[[nodiscard]] bool changesNumber(const std::string& ignored);

/// Whether the text is digits alone, with an exponent at most: what a decimal comma leaves behind.
[[nodiscard]] bool isFraction(const std::string& text);

/// Whether the text is a whole number without point and exponent: what a decimal comma leaves
/// before it.
[[nodiscard]] bool isWhole(const std::string& text);

}  // namespace lamkit

#endif
