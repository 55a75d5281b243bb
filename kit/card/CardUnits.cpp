// SPDX-License-Identifier: BSD-3-Clause
#include "card/CardUnits.h"

#include <array>
#include <cstddef>

namespace lamkit {

namespace {

/// The dimensions of a quantity in force, length and mass, and its unit in the two systems.
struct QuantityRow {
  int force;
  int length;
  int mass;
  const char* si;
  const char* millimetre;
};

/// In the order of Quantity.
constexpr std::array<QuantityRow, 8> kRows{{
    {0, 0, 0, "-", "-"},
    {1, -2, 0, "Pa", "MPa"},
    {0, 1, 0, "m", "mm"},
    {1, -1, 0, "N/m", "N/mm"},
    {0, -3, 1, "kg/m^3", "t/mm^3"},
    {1, -3, 0, "Pa/m", "MPa/mm"},
    {0, 0, 0, "1/K", "1/K"},
    {1, -2, 0, "Pa/K", "MPa/K"},
}};

const QuantityRow& rowOf(const Quantity quantity) noexcept {
  return kRows[static_cast<std::size_t>(quantity)];
}

double raised(const double base, const int exponent) noexcept {
  double power = 1.0;
  for (int i = 0; i < (exponent < 0 ? -exponent : exponent); ++i) {
    power *= base;
  }
  return exponent < 0 ? 1.0 / power : power;
}

}  // namespace

Quantity quantityOf(const lamcraft::Dimension dimension) noexcept {
  switch (dimension) {
    case lamcraft::Dimension::stress:
      return Quantity::stress;
    case lamcraft::Dimension::length:
      return Quantity::length;
    case lamcraft::Dimension::forcePerLength:
      return Quantity::energy;
    case lamcraft::Dimension::inverseTemperature:
      return Quantity::expansion;
    case lamcraft::Dimension::none:
      break;
  }
  return Quantity::none;
}

double CardUnits::factorOf(const Quantity quantity) const noexcept {
  const QuantityRow& row = rowOf(quantity);
  return raised(force, row.force) * raised(length, row.length) * raised(mass, row.mass);
}

const char* CardUnits::unitOf(const Quantity quantity) const noexcept {
  const QuantityRow& row = rowOf(quantity);
  return isSi() ? row.si : row.millimetre;
}

}  // namespace lamkit
