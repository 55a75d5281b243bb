// SPDX-License-Identifier: BSD-3-Clause
#include "model/UnitFactors.h"

namespace lamcraft {

UnitFactors unitFactors(const std::int32_t unitSystem) noexcept {
  constexpr double kPoundForce = 4.4482216;
  constexpr double kRankineStep = 0.5555555555555556;
  constexpr double kPound = 0.45359237;
  switch (unitSystem) {
    case 2:
      return {1.0, 0.001, 1.0, 1.0};
    case 3:
      return {kPoundForce, 0.0254, kRankineStep, kPound};
    case 4:
      return {kPoundForce, 0.3048, kRankineStep, kPound};
    default:
      return {1.0, 1.0, 1.0, 1.0};
  }
}

double factorOf(const Dimension dimension, const UnitFactors& factors) noexcept {
  switch (dimension) {
    case Dimension::stress:
      return factors.force / (factors.length * factors.length);
    case Dimension::length:
      return factors.length;
    case Dimension::forcePerLength:
      return factors.force / factors.length;
    case Dimension::inverseTemperature:
      return 1.0 / factors.temperature;
    case Dimension::none:
      break;
  }
  return 1.0;
}

}  // namespace lamcraft
