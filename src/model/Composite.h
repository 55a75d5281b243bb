// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MODEL_COMPOSITE_H
#define LAMCRAFT_MODEL_COMPOSITE_H

#include <array>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "model/Constituent.h"
#include "model/EnvironmentRecord.h"
#include "model/MaterialSystem.h"
#include "variation/VariableProperty.h"

namespace lamcraft {

/// Which optional keywords the deck holds anywhere.
struct KeywordPresence {
  bool variation = false;
  bool fracture = false;
  bool delam = false;
  bool snData = false;
  bool nlShear = false;
};

/// Which data file is written: the material data or, with S-N data, the fatigue data.
enum class DataFile { material, fatigue };

/// The root of one material: its constituent tree, settings and environments.
class Composite : public ParentCons {
 public:
  Composite();

  /// The symmetry with which the target lamina is read.
  [[nodiscard]] virtual Symmetry laminaSymmetry() const noexcept { return Symmetry::orthotropic; }

  /// Whether the model may be solved; puts on messages why not, where there is a text for it.
  virtual bool validate(std::ostream& messages) const = 0;

  /// Fits every environment and reports on the console; folder is the material folder. Returns 0.
  virtual int solve(const std::string& folder) = 0;

  /// Writes a data file at path. False when the file is not whole.
  virtual bool write(const std::string& path, DataFile file) const = 0;

  /// Whether it is a weave, with tows, and not unidirectional.
  [[nodiscard]] virtual bool isWoven() const noexcept { return false; }

  /// Harness number of a weave (1 plain, 4, 5 or 8 satin); 0 for composites that have none.
  [[nodiscard]] virtual std::int32_t harness() const noexcept { return 0; }

  /// Appends an environment, which becomes the last one.
  virtual EnvironmentRecord& addEnvironment(std::string_view moistureText, double temperature);

  std::string materialName;  ///< NAME of MATERIAL
  KeywordPresence presence;
  std::array<double, 2> maximumErrors{kDefaultMaximumError, kDefaultMaximumError};
  std::vector<EnvironmentRecord> environments;  ///< in deck order
  std::int32_t unitSystem = 1;
  double density = 0.0;
  VariableProperty plyThickness;
  VariableProperty referenceTemperature;
  MaterialSystem system;  ///< default properties, where the deck names a known system

  static constexpr double kDefaultMaximumError = 1e-3;
};

}  // namespace lamcraft

#endif
