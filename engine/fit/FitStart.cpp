// SPDX-License-Identifier: BSD-3-Clause
#include "fit/FitStart.h"

#include <cmath>

#include "fit/Widths.h"

namespace kx {

std::optional<FitStart> admissibleStart(const FittedMaterials& given, const bool isotropicMatrix) {
  const auto matrix = matrixStart(given.matrix, isotropicMatrix);
  const FitStart start{{transverselyIsotropic(given.fiber), matrix.constants}, matrix.symmetry};
  const bool isFiniteInput =
      isFinite(given.lamina) && isFinite(given.fiber) && isFinite(given.matrix);
  if (!isFiniteInput || !isAdmissible(start.constituents)) {
    return std::nullopt;
  }
  return start;
}

bool isIsotropicFiber(const TransverselyIsotropic& fiber) {
  const auto equal = [](const double value, const double expected) {
    return std::abs(value - expected) <= kIsotropicWithin * std::abs(expected);
  };
  return equal(fiber.e22, fiber.e11) && equal(fiber.v23, fiber.v12) &&
         equal(fiber.g12, fiber.e11 / (2.0 * (1.0 + fiber.v12)));
}

}  // namespace kx
