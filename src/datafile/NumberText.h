// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_DATAFILE_NUMBERTEXT_H
#define LAMCRAFT_DATAFILE_NUMBERTEXT_H

#include <array>

namespace lamcraft {

/// A number as the data files hold it, ended by a zero. The longest takes 22 characters.
using NumberText = std::array<char, 32>;

/// The text that "%21.14E" makes of value in the C locale, whatever the locale is: 14 digits after
/// a point, correctly rounded, an exponent of two or three digits, blanks on the left up to 21
/// characters; INF and NAN with their signs.
[[nodiscard]] NumberText formatted(double value) noexcept;

}  // namespace lamcraft

#endif
