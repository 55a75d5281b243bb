// SPDX-License-Identifier: BSD-3-Clause
#include "elastic/Properties.h"

#include <algorithm>
#include <cmath>

namespace kx {

Properties propertiesFrom(const double* array) noexcept {
  Properties properties;
  for (const auto member : kPropertyOrder<double>) {
    properties.*member = *array++;
  }
  return properties;
}

void copyTo(const Properties& properties, double* array) noexcept {
  for (const auto member : kPropertyOrder<double>) {
    *array++ = properties.*member;
  }
}

bool isFinite(const Properties& properties) noexcept {
  return std::all_of(kPropertyOrder<double>.begin(),
                     kPropertyOrder<double>.end(),
                     [&](const auto member) { return std::isfinite(properties.*member); });
}

Properties withExpansionsOf(const Properties& other, Properties elastic) noexcept {
  elastic.a11 = other.a11;
  elastic.a22 = other.a22;
  elastic.a33 = other.a33;
  return elastic;
}

bool isAdmissible(const Properties& p) noexcept {
  if (!isFinite(p)) {
    return false;
  }
  const bool positiveModuli =
      p.e11 > 0.0 && p.e22 > 0.0 && p.e33 > 0.0 && p.g12 > 0.0 && p.g13 > 0.0 && p.g23 > 0.0;
  if (!positiveModuli) {
    return false;
  }
  // Principal minors of the normal block of the compliance, scaled by its diagonal.
  const double v12v21 = p.v12 * p.v12 * (p.e22 / p.e11);
  const double v13v31 = p.v13 * p.v13 * (p.e33 / p.e11);
  const double v23v32 = p.v23 * p.v23 * (p.e33 / p.e22);
  const double cyclic = p.v12 * p.v23 * p.v13 * (p.e33 / p.e11);
  return v12v21 < 1.0 && v13v31 < 1.0 && v23v32 < 1.0 &&
         1.0 - v12v21 - v13v31 - v23v32 - 2.0 * cyclic > 0.0;
}

}  // namespace kx
