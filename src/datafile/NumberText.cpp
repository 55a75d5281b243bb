// SPDX-License-Identifier: BSD-3-Clause
#include "datafile/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string_view>

namespace lamcraft {
namespace {

constexpr std::ptrdiff_t kWidth = 21;
constexpr int kDigitsAfterPoint = 14;

/// Puts the digits of a finite number at first and returns their end.
char* putFinite(char* const first, char* const last, const double value) noexcept {
  char* const end =
      std::to_chars(first, last, value, std::chars_format::scientific, kDigitsAfterPoint).ptr;
  *std::find(first, end, 'e') = 'E';
  return end;
}

char* putSpecial(char* const first, const double value) noexcept {
  const std::string_view name = std::isnan(value) ? "-NAN" : "-INF";
  return std::copy(name.begin() + (std::signbit(value) ? 0 : 1), name.end(), first);
}

}  // namespace

NumberText formatted(const double value) noexcept {
  NumberText text{};
  char* const first = text.data();
  char* const end = std::isfinite(value) ? putFinite(first, first + text.size() - 1, value)
                                         : putSpecial(first, value);
  if (end - first < kWidth) {
    std::copy_backward(first, end, first + kWidth);
    std::fill(first, first + (kWidth - (end - first)), ' ');
  }
  return text;
}

}  // namespace lamcraft
