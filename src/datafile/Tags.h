// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_DATAFILE_TAGS_H
#define LAMCRAFT_DATAFILE_TAGS_H

#include <array>
#include <cstddef>
#include <cstdint>

#include "model/EnvironmentRecord.h"

/// What the data files call things, beyond the tables of the model: lists that whoever writes and
/// whoever reads the files go through alike. In the order of the files.
namespace lamcraft::xml {

inline constexpr const char* kRoot = "ZRN";
inline constexpr const char* kFormatVersion = "6.0";

/// One fit of an environment; the last one stands in fatigue data only.
struct FitTag {
  const char* tag;
  double SolveErrors::*initialError;
  double SolveErrors::*finalError;
  std::int32_t SolveIterations::*iterations;
};
inline constexpr std::array<FitTag, 3> kFitTags{{
    {"elastic_constants",
     &SolveErrors::initialMechanical,
     &SolveErrors::finalMechanical,
     &SolveIterations::mechanical},
    {"thermal_expansion",
     &SolveErrors::initialThermal,
     &SolveErrors::finalThermal,
     &SolveIterations::thermal},
    {"fatigue",
     &SolveErrors::initialFatigue,
     &SolveErrors::finalFatigue,
     &SolveIterations::fatigue},
}};

/// The attributes of a laminate's "thickness_strengthening".
inline constexpr std::array<const char*, 5> kLaminateTags{"c1", "c2", "c3", "c4", "c5"};

/// An attribute of a fatigue test. The order is not that of the record.
struct SnTag {
  const char* tag;
  double SnRecord::*value;
};
inline constexpr std::array<SnTag, 5> kSnTags{{
    {"stress", &SnRecord::stress},
    {"life", &SnRecord::life},
    {"f", &SnRecord::frequency},
    {"R", &SnRecord::ratio},
    {"theta", &SnRecord::angle},
}};

/// The attributes of the nonlinear shear law, in the order of PrefailConstants.
inline constexpr std::array<const char*, 6> kShearLawTags{
    "m", "b", "thr", "c2mdeg0", "c2mdeg1", "c2mdeg2"};

/// The entries of a decomposition matrix, row by row; the vectors use the names of the first row.
inline constexpr std::size_t kDecompositionOrder = 6;
inline constexpr std::array<const char*, kDecompositionOrder * kDecompositionOrder>
    kDecompositionTags{"D11", "D12", "D13", "D14", "D15", "D16", "D21", "D22", "D23",
                       "D24", "D25", "D26", "D31", "D32", "D33", "D34", "D35", "D36",
                       "D41", "D42", "D43", "D44", "D45", "D46", "D51", "D52", "D53",
                       "D54", "D55", "D56", "D61", "D62", "D63", "D64", "D65", "D66"};

/// The directions of the fatigue constants, one result row each.
inline constexpr std::array<const char*, 2> kFatigueDirectionTags{"longitudinal", "transverse"};

/// Where a constant of a direction stands: in a group of its own, or in none.
struct FatigueConstantTag {
  const char* group;  ///< null for a constant that stands by itself
  const char* tag;
};
/// In the order of a result row.
inline constexpr std::array<FatigueConstantTag, 6> kFatigueConstantTags{{
    {"U", "breaking"},
    {"U", "healing"},
    {"gamma", "breaking"},
    {"gamma", "healing"},
    {nullptr, "Psi"},
    {nullptr, "k"},
}};

}  // namespace lamcraft::xml

#endif
