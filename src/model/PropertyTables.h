// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MODEL_PROPERTYTABLES_H
#define LAMCRAFT_MODEL_PROPERTYTABLES_H

#include <array>
#include <cstddef>
#include <cstdint>

/// The one place that names the properties of the model. Reader, console, unit conversion and data
/// files go through these rows; the position in a table is the position in the record it describes.
namespace lamcraft {

/// What a quantity is measured in, hence the factor that takes it to base units.
enum class Dimension { none, stress, length, forcePerLength, inverseTemperature };

/// One of the twelve elastic and thermal properties of a lamina or constituent.
struct PropertyRow {
  const char* label;  ///< on the console
  const char* tag;    ///< in the deck (VARIATION) and in the data files
  Dimension dimension;
};

/// In the order in which the library and the data files hold them.
inline constexpr std::array kPropertyRows{
    PropertyRow{"E11", "E11", Dimension::stress},
    PropertyRow{"E22", "E22", Dimension::stress},
    PropertyRow{"E33", "E33", Dimension::stress},
    PropertyRow{"v12", "NU12", Dimension::none},
    PropertyRow{"v13", "NU13", Dimension::none},
    PropertyRow{"v23", "NU23", Dimension::none},
    PropertyRow{"G12", "G12", Dimension::stress},
    PropertyRow{"G13", "G13", Dimension::stress},
    PropertyRow{"G23", "G23", Dimension::stress},
    PropertyRow{"A11", "CTE11", Dimension::inverseTemperature},
    PropertyRow{"A22", "CTE22", Dimension::inverseTemperature},
    PropertyRow{"A33", "CTE33", Dimension::inverseTemperature},
};

constexpr std::size_t kPropertyCount = kPropertyRows.size();

/// Positions in kPropertyRows, for code that names a property.
enum class Property : std::size_t { e11, e22, e33, v12, v13, v23, g12, g13, g23, a11, a22, a33 };
static_assert(static_cast<std::size_t>(Property::a33) + 1 == kPropertyCount);

constexpr std::size_t indexOf(const Property property) noexcept {
  return static_cast<std::size_t>(property);
}

/// The symmetry of a property set; the numbers are those of the deck and of the library. Values
/// other than these travel unharmed and count as orthotropic.
enum class Symmetry : std::int32_t { unset, isotropic, transverse12, transverse23, orthotropic };

/// A property of one of the smaller groups of an environment.
struct GroupRow {
  const char* deckName;  ///< the PROP of VARIATION; null when the deck cannot vary it
  const char* tag;       ///< in the data files
  Dimension dimension;
  std::size_t filePlace;  ///< in its element of the data files, from 0
};

/// Whether every number below Count stands in the list.
template <std::size_t Count>
constexpr bool isPermutation(const std::array<std::size_t, Count>& list) noexcept {
  for (std::size_t number = 0; number < Count; ++number) {
    bool isThere = false;
    for (const std::size_t entry : list) {
      isThere = isThere || entry == number;
    }
    if (!isThere) {
      return false;
    }
  }
  return true;
}

template <std::size_t Count>
constexpr std::array<std::size_t, Count> filePlaces(
    const std::array<GroupRow, Count>& rows) noexcept {
  std::array<std::size_t, Count> places{};
  for (std::size_t i = 0; i < Count; ++i) {
    places[i] = rows[i].filePlace;
  }
  return places;
}

/// Positions of the strengths of a unidirectional composite.
enum class UniStrength : std::size_t { t1, c1, t2, c2, s12, s23 };

/// Positions of the strengths of a woven composite: knee and ultimate.
enum class WeaveStrength : std::size_t { t1Knee, t1, c1Knee, c1, s12Knee, s12 };

/// The data files repeat some of them for direction 3, at the places between.
inline constexpr std::array kUniStrengthRows{
    GroupRow{"T1", "pS11", Dimension::stress, 0},
    GroupRow{"C1", "nS11", Dimension::stress, 1},
    GroupRow{"T2", "pS22", Dimension::stress, 2},
    GroupRow{"C2", "nS22", Dimension::stress, 3},
    GroupRow{"S12", "S12", Dimension::stress, 6},
    GroupRow{"S23", "S23", Dimension::stress, 8},
};
constexpr std::size_t kStrengthCount = kUniStrengthRows.size();

inline constexpr std::array kWeaveStrengthRows{
    GroupRow{nullptr, "PS11K", Dimension::stress, 0},
    GroupRow{"T1", "PS11U", Dimension::stress, 1},
    GroupRow{nullptr, "NS11K", Dimension::stress, 2},
    GroupRow{"C1", "NS11U", Dimension::stress, 3},
    GroupRow{nullptr, "S12K", Dimension::stress, 4},
    GroupRow{"S12", "S12U", Dimension::stress, 5},
};
static_assert(isPermutation(filePlaces(kWeaveStrengthRows)));
static_assert(kWeaveStrengthRows.size() == kStrengthCount, "an environment has room for either");

inline constexpr std::array kInvariantRows{
    GroupRow{"DILATATION", "dilatation", Dimension::none, 0},
    GroupRow{"DISTORTION", "distortion", Dimension::none, 1},
    GroupRow{"FIBERTENSILEDISTORTION", "tensileFiberDistortion", Dimension::none, 2},
    GroupRow{"FIBERCOMPRESSIVEDISTORTION", "compressiveFiberDistortion", Dimension::none, 3},
    GroupRow{"TENSILESTRAIN", "tensileStrain", Dimension::none, 4},
    GroupRow{"COMPRESSIVESTRAIN", "compressiveStrain", Dimension::none, 5},
};
static_assert(isPermutation(filePlaces(kInvariantRows)));
constexpr std::size_t kInvariantCount = kInvariantRows.size();

inline constexpr std::array kFractureRows{
    GroupRow{"GFTC", "GftC", Dimension::forcePerLength, 4},
    GroupRow{"GFCC", "GfcC", Dimension::forcePerLength, 5},
    GroupRow{"GMC", "GmC", Dimension::forcePerLength, 0},
    GroupRow{"GMNC", "GmnC", Dimension::forcePerLength, 1},
    GroupRow{"GMSC", "GmsC", Dimension::forcePerLength, 2},
    GroupRow{"ALPHA", "alpha", Dimension::none, 3},
};
static_assert(isPermutation(filePlaces(kFractureRows)));
constexpr std::size_t kFractureCount = kFractureRows.size();

/// KNN, KSS and KTT scale as stresses, although a stiffness per thickness has another dimension:
/// the programs that read the data files count on it.
inline constexpr std::array kCohesiveRows{
    GroupRow{"KNN", "Knn", Dimension::stress, 0},
    GroupRow{"KSS", "Kss", Dimension::stress, 1},
    GroupRow{"KTT", "Ktt", Dimension::stress, 2},
    GroupRow{"SN", "Sn", Dimension::stress, 3},
    GroupRow{"SS", "Ss", Dimension::stress, 4},
    GroupRow{"ST", "St", Dimension::stress, 5},
    GroupRow{"DMF_DM0", "dmf_dm0", Dimension::length, 6},
    GroupRow{"GC", "GC", Dimension::forcePerLength, 7},
    GroupRow{"GNC", "GnC", Dimension::forcePerLength, 8},
    GroupRow{"GSC", "GsC", Dimension::forcePerLength, 9},
    GroupRow{"GTC", "GtC", Dimension::forcePerLength, 10},
    GroupRow{"ALPHA", "alpha", Dimension::none, 11},
    GroupRow{"D2N", "d2n", Dimension::length, 12},
    GroupRow{"D2S", "d2s", Dimension::length, 13},
    GroupRow{"D2T", "d2t", Dimension::length, 14},
};
static_assert(isPermutation(filePlaces(kCohesiveRows)));
constexpr std::size_t kCohesiveCount = kCohesiveRows.size();

}  // namespace lamcraft

#endif
