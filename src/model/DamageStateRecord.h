#ifndef LAMCRAFT_MODEL_DAMAGESTATERECORD_H
#define LAMCRAFT_MODEL_DAMAGESTATERECORD_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/PropertySet.h"

namespace lamcraft {

/// The nine property sets of a damage state, in record order.
enum class DamageSet : std::size_t {
  composite,
  matrixPocket,
  fill,
  warp,
  interfaceLayer,  ///< never filled: the interface has no volume
  fillFiber,
  fillMatrix,
  warpFiber,
  warpMatrix
};
constexpr std::size_t kDamageSetCount = 9;

/// Stress and strain decomposition of one constituent: 6x6 matrices by columns, then the thermal
/// vectors; components in the order 11 22 33 12 13 23.
struct DecompositionSlot {
  std::array<double, 36> stress;
  std::array<double, 36> strain;
  std::array<double, 6> thermalStress;
  std::array<double, 6> thermalStrain;
};
constexpr std::size_t kSlotLength = 84;

/// What the library fills for one damage state, as one contiguous block: the fatigue fit reads it
/// whole, from the state number on.
struct DamageStateData {
  std::int32_t state = 0;
  std::int32_t pocketCode = 0;
  std::int32_t fillCode = 0;
  std::int32_t warpCode = 0;
  std::array<std::array<double, kPropertyCount>, kDamageSetCount> sets{};
  std::array<DecompositionSlot, 4> unitCell{};
  std::array<DecompositionSlot, 2> fillTow{};
  std::array<DecompositionSlot, 2> warpTow{};
};

static_assert(sizeof(DecompositionSlot) == kSlotLength * sizeof(double), "a slot has no gaps");
static_assert(offsetof(DamageStateData, sets) == 4 * sizeof(std::int32_t),
              "the sets follow the four integers without a gap");
static_assert(sizeof(DamageStateData) ==
                  4 * sizeof(std::int32_t) +
                      (kDamageSetCount * kPropertyCount + 8 * kSlotLength) * sizeof(double),
              "the record is one block without gaps");

/// One damage state of a woven composite: the library's block, and the property objects that the
/// data files are written from.
struct DamageStateRecord {
  DamageStateData data;
  std::array<PropertySet, kDamageSetCount> properties;

  [[nodiscard]] double* set(const DamageSet which) noexcept {
    return data.sets[static_cast<std::size_t>(which)].data();
  }
  [[nodiscard]] const PropertySet& property(const DamageSet which) const noexcept {
    return properties[static_cast<std::size_t>(which)];
  }

  /// Copies the filled sets into the property objects.
  void publish();
};

/// The eighteen states of a woven composite, in order: state 1 + p + 2 f + 6 w for the codes of
/// pocket (0, 1), fill and warp (0 intact, 1 matrix failed, 2 matrix and fiber failed).
[[nodiscard]] std::vector<DamageStateRecord> allDamageStates();

/// The eight of them with matrix damage only, which fatigue looks at.
[[nodiscard]] std::vector<DamageStateRecord> fatigueDamageStates();

}  // namespace lamcraft

#endif
