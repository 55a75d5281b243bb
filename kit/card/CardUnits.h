// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CARD_CARDUNITS_H
#define LAMKIT_CARD_CARDUNITS_H

#include "model/PropertyTables.h"

namespace lamkit {

/// What the numbers of a card are in.
enum class Quantity {
  none,
  stress,
  length,
  energy,    ///< per area
  density,   ///< mass per volume
  traction,  ///< stiffness of a cohesive layer: stress per length
  expansion,
  thermalStress,  ///< stress per temperature
};

/// The quantity of a row of the model's tables.
[[nodiscard]] Quantity quantityOf(lamcraft::Dimension dimension) noexcept;

/// A consistent system of units: force, length, time, and the mass that follows. Temperatures are
/// in kelvin in every one.
struct CardUnits {
  const char* name;         ///< as --units has it
  const char* description;  ///< for the head of a card
  double force;             ///< one newton in this system
  double length;            ///< one metre
  double mass;              ///< one kilogram

  /// What a number in newton, metre and kilogram is multiplied with.
  [[nodiscard]] double factorOf(Quantity quantity) const noexcept;

  /// "Pa", "MPa"; "-" for what has none.
  [[nodiscard]] const char* unitOf(Quantity quantity) const noexcept;

  [[nodiscard]] bool isSi() const noexcept { return length == 1.0; }
};

/// Newton, metre, kilogram, second.
inline constexpr CardUnits kSi{"si", "N, m, kg, s, K (stress in Pa)", 1.0, 1.0, 1.0};

/// Newton, millimetre, tonne, second.
inline constexpr CardUnits kMillimetreTonne{
    "mm-t-s", "N, mm, tonne, s, K (stress in MPa)", 1.0, 1e3, 1e-3};

}  // namespace lamkit

#endif
