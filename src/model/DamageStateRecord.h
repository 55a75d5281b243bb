// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MODEL_DAMAGESTATERECORD_H
#define LAMCRAFT_MODEL_DAMAGESTATERECORD_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "lamcraft/kxdriver.h"
#include "model/PropertyTables.h"

namespace lamcraft {

/// The nine property sets of a damage state, in record order.
enum class DamageSet : std::size_t {
  composite = KX_SET_COMPOSITE,
  matrixPocket = KX_SET_POCKET,
  fill = KX_SET_FILL,
  warp = KX_SET_WARP,
  interfaceLayer = KX_SET_INTERFACE,  ///< never filled: the interface has no volume
  fillFiber = KX_SET_FILL_FIBER,
  fillMatrix = KX_SET_FILL_MATRIX,
  warpFiber = KX_SET_WARP_FIBER,
  warpMatrix = KX_SET_WARP_MATRIX
};

/// Stress and strain decomposition of one constituent: 6x6 matrices by columns, then the thermal
/// vectors; components in the order 11 22 33 12 13 23.
struct DecompositionSlot {
  std::array<double, 36> stress;
  std::array<double, 36> strain;
  std::array<double, 6> thermalStress;
  std::array<double, 6> thermalStrain;
};
static_assert(offsetof(DecompositionSlot, stress) == KX_SLOT_STRESS * sizeof(double));
static_assert(offsetof(DecompositionSlot, strain) == KX_SLOT_STRAIN * sizeof(double));
static_assert(offsetof(DecompositionSlot, thermalStress) ==
              KX_SLOT_THERMAL_STRESS * sizeof(double));
static_assert(offsetof(DecompositionSlot, thermalStrain) ==
              KX_SLOT_THERMAL_STRAIN * sizeof(double));
static_assert(sizeof(DecompositionSlot) == KX_SLOT_LENGTH * sizeof(double), "a slot has no gaps");

/// One damage state of a woven composite: what it is, and what the library fills for it. One
/// contiguous block: the fatigue fit reads it whole, from the state number on.
struct DamageStateRecord {
  using Twelve = std::array<double, kPropertyCount>;

  std::int32_t state = 0;
  std::int32_t pocketCode = 0;
  std::int32_t fillCode = 0;
  std::int32_t warpCode = 0;
  std::array<Twelve, KX_SET_COUNT> sets{};
  std::array<DecompositionSlot, KX_CELL_SLOTS> unitCell{};
  std::array<DecompositionSlot, KX_TOW_SLOTS> fillTow{};
  std::array<DecompositionSlot, KX_TOW_SLOTS> warpTow{};

  [[nodiscard]] Twelve& set(const DamageSet which) noexcept {
    return sets[static_cast<std::size_t>(which)];
  }
  [[nodiscard]] const Twelve& set(const DamageSet which) const noexcept {
    return sets[static_cast<std::size_t>(which)];
  }
};

static_assert(offsetof(DamageStateRecord, sets) == 4 * sizeof(std::int32_t),
              "the sets follow the four integers without a gap");
static_assert(sizeof(DamageStateRecord) ==
                  4 * sizeof(std::int32_t) + (KX_SET_COUNT * KX_PROPERTY_COUNT +
                                              (KX_CELL_SLOTS + 2 * KX_TOW_SLOTS) * KX_SLOT_LENGTH) *
                                                 sizeof(double),
              "the record is one block without gaps");

/// The eighteen states of a woven composite, in the order of their numbers: every combination of
/// the codes of pocket (intact, matrix failed), fill and warp (fiber failed as well).
[[nodiscard]] std::vector<DamageStateRecord> allDamageStates();

/// The eight of them with matrix damage only, which fatigue looks at.
[[nodiscard]] std::vector<DamageStateRecord> fatigueDamageStates();

}  // namespace lamcraft

#endif
