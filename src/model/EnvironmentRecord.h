// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MODEL_ENVIRONMENTRECORD_H
#define LAMCRAFT_MODEL_ENVIRONMENTRECORD_H

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/DamageStateRecord.h"
#include "model/PropertySet.h"
#include "model/PropertyTables.h"
#include "variation/VariableProperty.h"

namespace lamcraft {

/// A moisture condition of the three that exist.
struct MoistureCondition {
  std::int32_t code;
  const char* deckText;
  const char* name;  ///< in the data files
};

/// All of them; the first one is that of a text that names none.
inline constexpr std::array<MoistureCondition, 3> kMoistureConditions{{
    {0, "AMBIENT", "ambient"},
    {1, "DRY", "dry"},
    {2, "WET", "wet"},
}};

/// The condition that the deck's text selects; ambient for any text that is none of the three.
[[nodiscard]] const MoistureCondition& moistureCondition(std::string_view deckText) noexcept;

/// A laminate that the thickness-strengthening law was measured on.
struct LaminateEntry {
  std::string name;
  std::array<double, 5> coefficients;
};

/// One fatigue test; the library reads five doubles in this order.
struct SnRecord {
  double stress;
  double life;
  double frequency;
  double angle;
  double ratio;
};
static_assert(sizeof(SnRecord) == 5 * sizeof(double), "the library reads records of five doubles");

/// The errors of an environment's fits, in the order in which the library writes them.
struct SolveErrors {
  double initialMechanical = 0.0;
  double finalMechanical = 0.0;
  double initialThermal = 0.0;
  double finalThermal = 0.0;
  double initialFatigue = 0.0;
  double finalFatigue = 0.0;
};
static_assert(sizeof(SolveErrors) == 6 * sizeof(double), "the library writes six doubles");

/// The iteration counts of an environment's fits, in the order in which the library writes them.
struct SolveIterations {
  std::int32_t mechanical = 0;
  std::int32_t thermal = 0;
  std::int32_t fatigue = 0;
};
static_assert(sizeof(SolveIterations) == 3 * sizeof(std::int32_t), "the library writes three ints");

/// The constants of the nonlinear shear law.
struct PrefailConstants {
  double m = 0.0;
  double b = 0.0;
  double thr = 0.0;
  std::array<double, 3> c2mdeg{};
};

/// Six doubles that the fatigue fit fills. Rows stand one behind the other.
using ResultRow = std::array<double, 6>;
static_assert(sizeof(ResultRow) == 6 * sizeof(double), "two rows are read as twelve doubles");

/// Everything that belongs to one ENVIRONMENT keyword: inputs and results alike.
struct EnvironmentRecord {
  EnvironmentRecord(std::string_view moistureText, double absoluteTemperature);

  const MoistureCondition* moisture;  ///< one of the fixed conditions, never null
  double temperature;                 ///< absolute, in the deck's unit until the conversion

  std::array<VariableProperty, kStrengthCount> strengths;
  std::array<VariableProperty, kInvariantCount> invariants;
  PropertySet lamina;  ///< target in, what the fitted constituents give out
  PropertySet fiber;   ///< start values in, fitted values out
  PropertySet matrix;
  std::array<VariableProperty, kCohesiveCount> cohesive;
  std::array<VariableProperty, kFractureCount> fracture;

  std::vector<LaminateEntry> laminates;
  std::vector<SnRecord> snRecords;
  SolveErrors errors;
  SolveIterations iterations;
  std::vector<ResultRow> resultRows;  ///< two (unidirectional) or four (woven) once solved
  std::vector<double> shearStress;    ///< first column of NLSHEAR
  std::vector<double> shearStrain;    ///< second column, of equal length
  PrefailConstants prefail;
  std::vector<DamageStateRecord> damageStates;         ///< woven only
  std::vector<DamageStateRecord> fatigueDamageStates;  ///< woven only
};

}  // namespace lamcraft

#endif
