// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_FOLDER_MATERIALDATA_H
#define LAMKIT_FOLDER_MATERIALDATA_H

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/DamageStateRecord.h"
#include "model/EnvironmentRecord.h"
#include "model/PropertyTables.h"
#include "variation/VariableProperty.h"

/// What the data files of a material folder hold, as plain values: every number of mdata.xml and
/// fdata.xml has a place here. Units are those of the files (docs/datafile.md): N, m, kg, K.
namespace lamkit {

using lamcraft::DecompositionSlot;
using lamcraft::kCohesiveCount;
using lamcraft::kFractureCount;
using lamcraft::kInvariantCount;
using lamcraft::kPropertyCount;
using lamcraft::kStrengthCount;
using lamcraft::LaminateEntry;
using lamcraft::PrefailConstants;
using lamcraft::Property;
using lamcraft::ResultRow;
using lamcraft::SnRecord;
using lamcraft::SolveErrors;
using lamcraft::SolveIterations;
using lamcraft::VariableProperty;

/// The twelve properties of kPropertyRows, with their scatter.
using PropertyValues = std::array<VariableProperty, kPropertyCount>;

[[nodiscard]] inline double valueOf(const PropertyValues& set, const Property property) {
  return set[lamcraft::indexOf(property)].value();
}

/// The twelve values of a set, without scatter.
[[nodiscard]] std::array<double, kPropertyCount> valuesOf(const PropertyValues& set);

/// A property set of one damage state; 1 is intact.
struct StateProperties {
  std::int32_t state = 1;
  PropertyValues properties;
};

/// How a constituent shares in its parent's stress and strain in one damage state. The matrices are
/// stored by columns: entry ij, counted from 1, is number (i - 1) + 6 (j - 1).
struct StateDecomposition {
  std::int32_t state = 1;
  DecompositionSlot slot{};
};

/// A constituent of the material as a whole.
struct ConstituentData {
  std::int32_t number = 0;
  std::string type;  ///< empty for a matrix pocket
  std::string name;
  std::int32_t count = 1;  ///< reported number of its own constituents
  VariableProperty volumeFraction;
  std::optional<double> degradation;  ///< factor on the moduli when it has failed
  std::vector<ConstituentData> children;
};

/// A constituent in one environment.
struct FittedConstituent {
  std::int32_t number = 0;
  std::string type;
  std::string name;
  std::vector<StateProperties> states;  ///< one in a unidirectional material; none of an interface
  std::vector<StateDecomposition> decompositions;  ///< none in a unidirectional material
  /// Constants of the fatigue law along and across the fibers, from fdata.xml.
  std::optional<std::array<ResultRow, 2>> fatigue;
  std::vector<FittedConstituent> children;
};

/// The nonlinear shear law and the curve it was fitted to.
struct ShearLaw {
  PrefailConstants constants;
  std::vector<double> stress;  ///< [Pa]
  std::vector<double> strain;  ///< engineering shear strain, of equal length
};

/// One environment with all that was fitted in it.
struct EnvironmentData {
  double temperature = 0.0;  ///< [K]
  std::string moisture;      ///< "ambient", "dry" or "wet"
  SolveErrors errors;
  SolveIterations iterations;
  bool hasFatigueFit = false;  ///< whether errors and iterations hold those of a fatigue fit
  std::vector<LaminateEntry> laminates;
  std::vector<StateProperties> composite;  ///< the first is the intact composite
  /// In the order of kUniStrengthRows or kWeaveStrengthRows.
  std::array<VariableProperty, kStrengthCount> strengths;
  std::vector<SnRecord> snRecords;
  std::optional<std::array<VariableProperty, kInvariantCount>> invariants;
  std::optional<std::array<VariableProperty, kFractureCount>> fracture;
  std::optional<std::array<VariableProperty, kCohesiveCount>> cohesive;
  std::optional<ShearLaw> shearLaw;
  std::vector<FittedConstituent> constituents;

  /// The intact composite.
  [[nodiscard]] const PropertyValues& lamina() const { return composite.front().properties; }
  /// The intact fiber or matrix: of a weave those of the fill tow, of which both tows are made.
  /// Throws std::out_of_range where the data hold none.
  [[nodiscard]] const PropertyValues& fiber() const;
  [[nodiscard]] const PropertyValues& matrix() const;
  /// The constituent of this name at any depth; null when there is none.
  [[nodiscard]] const FittedConstituent* find(std::string_view wanted) const;
};

/// One data file.
struct MaterialData {
  std::string name;
  std::string version;   ///< of the format
  double density = 0.0;  ///< [kg/m^3]
  std::int32_t count = 0;
  std::optional<std::int32_t> harness;    ///< of a weave: 1 plain, 4, 5 or 8
  VariableProperty referenceTemperature;  ///< [K]
  VariableProperty plyThickness;          ///< [m]
  std::vector<ConstituentData> constituents;
  std::vector<EnvironmentData> environments;

  [[nodiscard]] bool isWoven() const noexcept { return harness.has_value(); }
  /// The constituent of this name at any depth; null when there is none.
  [[nodiscard]] const ConstituentData* find(std::string_view wanted) const;
};

}  // namespace lamkit

#endif
