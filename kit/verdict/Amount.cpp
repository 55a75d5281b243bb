// SPDX-License-Identifier: BSD-3-Clause
#include "verdict/Amount.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "check/Wording.h"

namespace lamkit {

namespace {

/// lamkit never changes the C library's locale, so that its numbers have a dot.
std::string printed(const char* const format, const double number) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), format, number);
  return text.data();
}

std::string stress(const double number) {
  struct Unit {
    double size;
    const char* name;
  };
  for (const Unit& unit : {Unit{1e9, " GPa"}, Unit{1e6, " MPa"}}) {
    if (std::abs(number) >= unit.size && std::isfinite(number)) {
      return shown(number / unit.size) + unit.name;
    }
  }
  return shown(number) + " Pa";
}

}  // namespace

std::string roughly(const double number) {
  return printed("%.2g", number);
}

std::string amount(const double number, const lamcraft::Dimension dimension) {
  switch (dimension) {
    case lamcraft::Dimension::stress:
      return stress(number);
    case lamcraft::Dimension::length:
      return shown(number) + " m";
    case lamcraft::Dimension::forcePerLength:
      return shown(number) + " N/m";
    case lamcraft::Dimension::inverseTemperature:
      return shown(number) + " 1/K";
    case lamcraft::Dimension::none:
      break;
  }
  return shown(number);
}

std::string percent(const double part) {
  return printed(std::abs(part) < 0.1 ? "%.2g" : "%.3g", 100.0 * std::abs(part)) + " %";
}

}  // namespace lamkit
