// SPDX-License-Identifier: BSD-3-Clause
#include "shear/SecantLaw.h"

#include <algorithm>

namespace kx {

double SecantLaw::degradation(const double stress) const noexcept {
  return stress <= threshold ? 1.0 : std::max(0.0, m * stress + b);
}

double SecantLaw::strainAt(const double stress) const noexcept {
  return stress / (initialModulus * degradation(stress));
}

double SecantLaw::stressAt(const double strain) const noexcept {
  const double straight = initialModulus * strain;
  return straight <= threshold ? straight : straight * b / (1.0 - straight * m);
}

}  // namespace kx
