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

constexpr std::size_t kPropertyCount = 12;

/// In the order in which the library and the data files hold them.
inline constexpr std::array<PropertyRow, kPropertyCount> kPropertyRows{{
    {"E11", "E11", Dimension::stress},
    {"E22", "E22", Dimension::stress},
    {"E33", "E33", Dimension::stress},
    {"v12", "NU12", Dimension::none},
    {"v13", "NU13", Dimension::none},
    {"v23", "NU23", Dimension::none},
    {"G12", "G12", Dimension::stress},
    {"G13", "G13", Dimension::stress},
    {"G23", "G23", Dimension::stress},
    {"A11", "CTE11", Dimension::inverseTemperature},
    {"A22", "CTE22", Dimension::inverseTemperature},
    {"A33", "CTE33", Dimension::inverseTemperature},
}};

/// Positions in kPropertyRows, for code that names a property.
enum class Property : std::size_t { e11, e22, e33, v12, v13, v23, g12, g13, g23, a11, a22, a33 };

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
};

constexpr std::size_t kStrengthCount = 6;
constexpr std::size_t kInvariantCount = 6;
constexpr std::size_t kFractureCount = 6;
constexpr std::size_t kCohesiveCount = 15;

/// Positions of the strengths of a unidirectional composite.
enum class UniStrength : std::size_t { t1, c1, t2, c2, s12, s23 };

/// Positions of the strengths of a woven composite: knee and ultimate.
enum class WeaveStrength : std::size_t { t1Knee, t1, c1Knee, c1, s12Knee, s12 };

/// Positions of the fracture properties.
enum class Fracture : std::size_t { gftC, gfcC, gmC, gmnC, gmsC, alpha };

inline constexpr std::array<GroupRow, kStrengthCount> kUniStrengthRows{{
    {"T1", "pS11", Dimension::stress},
    {"C1", "nS11", Dimension::stress},
    {"T2", "pS22", Dimension::stress},
    {"C2", "nS22", Dimension::stress},
    {"S12", "S12", Dimension::stress},
    {"S23", "S23", Dimension::stress},
}};

inline constexpr std::array<GroupRow, kStrengthCount> kWeaveStrengthRows{{
    {nullptr, "PS11K", Dimension::stress},
    {"T1", "PS11U", Dimension::stress},
    {nullptr, "NS11K", Dimension::stress},
    {"C1", "NS11U", Dimension::stress},
    {nullptr, "S12K", Dimension::stress},
    {"S12", "S12U", Dimension::stress},
}};

inline constexpr std::array<GroupRow, kInvariantCount> kInvariantRows{{
    {"DILATATION", "dilatation", Dimension::none},
    {"DISTORTION", "distortion", Dimension::none},
    {"FIBERTENSILEDISTORTION", "tensileFiberDistortion", Dimension::none},
    {"FIBERCOMPRESSIVEDISTORTION", "compressiveFiberDistortion", Dimension::none},
    {"TENSILESTRAIN", "tensileStrain", Dimension::none},
    {"COMPRESSIVESTRAIN", "compressiveStrain", Dimension::none},
}};

inline constexpr std::array<GroupRow, kFractureCount> kFractureRows{{
    {"GFTC", "GftC", Dimension::forcePerLength},
    {"GFCC", "GfcC", Dimension::forcePerLength},
    {"GMC", "GmC", Dimension::forcePerLength},
    {"GMNC", "GmnC", Dimension::forcePerLength},
    {"GMSC", "GmsC", Dimension::forcePerLength},
    {"ALPHA", "alpha", Dimension::none},
}};

/// KNN, KSS and KTT scale as stresses, although a stiffness per thickness has another dimension:
/// the programs that read the data files count on it.
inline constexpr std::array<GroupRow, kCohesiveCount> kCohesiveRows{{
    {"KNN", "Knn", Dimension::stress},
    {"KSS", "Kss", Dimension::stress},
    {"KTT", "Ktt", Dimension::stress},
    {"SN", "Sn", Dimension::stress},
    {"SS", "Ss", Dimension::stress},
    {"ST", "St", Dimension::stress},
    {"DMF_DM0", "dmf_dm0", Dimension::length},
    {"GC", "GC", Dimension::forcePerLength},
    {"GNC", "GnC", Dimension::forcePerLength},
    {"GSC", "GsC", Dimension::forcePerLength},
    {"GTC", "GtC", Dimension::forcePerLength},
    {"ALPHA", "alpha", Dimension::none},
    {"D2N", "d2n", Dimension::length},
    {"D2S", "d2s", Dimension::length},
    {"D2T", "d2t", Dimension::length},
}};

}  // namespace lamcraft

#endif
