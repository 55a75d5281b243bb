// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CARD_JSONVALUES_H
#define LAMKIT_CARD_JSONVALUES_H

#include <array>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "card/CardUnits.h"
#include "folder/MaterialData.h"

namespace lamkit {

using Json = nlohmann::ordered_json;

/// An array of what `write` makes of each element.
template <typename Values, typename Write>
[[nodiscard]] Json listOf(const Values& values, const Write& write) {
  auto array = Json::array();
  for (const auto& value : values) {
    array.push_back(write(value));
  }
  return array;
}

/// Numbers of a data file as JSON, in the units of a card. What is no number becomes null.
class JsonValues {
 public:
  explicit JsonValues(const CardUnits& units) : units_(units) {}

  /// The name of the system, and the unit of each kind of quantity.
  [[nodiscard]] Json units() const;

  /// {"value": ..., "unit": ...}
  [[nodiscard]] Json number(double value, Quantity quantity) const;
  /// The same with "min", "max" and "distributions" where the property scatters.
  [[nodiscard]] Json property(const VariableProperty& property, Quantity quantity) const;
  [[nodiscard]] Json temperature(const VariableProperty& property) const;

  /// The properties of a table of the model, by the tags of its rows.
  template <typename Rows, typename Values>
  [[nodiscard]] Json group(const Rows& rows, const Values& values) const {
    Json object = Json::object();
    for (std::size_t i = 0; i < rows.size(); ++i) {
      object[rows[i].tag] = property(values[i], quantityOf(rows[i].dimension));
    }
    return object;
  }
  /// The twelve properties by their labels, "E11" to "A33".
  [[nodiscard]] Json propertySet(const PropertyValues& values) const;
  [[nodiscard]] Json cohesive(const std::array<VariableProperty, kCohesiveCount>& values) const;

  [[nodiscard]] Json snRecord(const SnRecord& record) const;
  [[nodiscard]] Json shearLaw(const ShearLaw& law) const;
  [[nodiscard]] Json fatigueConstants(const ResultRow& row) const;
  /// Matrices by rows.
  [[nodiscard]] Json decomposition(const StateDecomposition& decomposition) const;

 private:
  [[nodiscard]] Json property(const VariableProperty& property,
                              const char* unit,
                              double factor) const;

  CardUnits units_;
};

}  // namespace lamkit

#endif
