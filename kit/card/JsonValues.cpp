// SPDX-License-Identifier: BSD-3-Clause
#include "card/JsonValues.h"

#include <cstddef>
#include <utility>

namespace lamkit {

namespace {

/// Names of the units, for numbers that stand without one of their own.
constexpr std::array<std::pair<const char*, Quantity>, 7> kNamedUnits{{
    {"stress", Quantity::stress},
    {"length", Quantity::length},
    {"energy", Quantity::energy},
    {"density", Quantity::density},
    {"traction", Quantity::traction},
    {"expansion", Quantity::expansion},
    {"thermal_stress", Quantity::thermalStress},
}};

Json rowsOf(const std::array<double, 36>& columns) {
  constexpr std::size_t kOrder = 6;
  auto rows = Json::array();
  for (std::size_t row = 0; row < kOrder; ++row) {
    auto numbers = Json::array();
    for (std::size_t column = 0; column < kOrder; ++column) {
      numbers.push_back(columns[row + kOrder * column]);
    }
    rows.push_back(std::move(numbers));
  }
  return rows;
}

Json distributionsOf(const VariableProperty& property) {
  Json distributions = Json::object();
  for (const lamcraft::Distribution* const distribution : property.distributions()) {
    if (!distribution->hasSpread()) {
      continue;
    }
    Json parameters = Json::object();
    for (std::size_t i = 0; i < distribution->parameterCount(); ++i) {
      parameters[distribution->parameterName(i)] = distribution->parameter(i);
    }
    distributions[distribution->name()] = std::move(parameters);
  }
  return distributions;
}

}  // namespace

Json JsonValues::units() const {
  Json units = {{"system", units_.name}, {"temperature", "K"}};
  for (const auto& [name, quantity] : kNamedUnits) {
    units[name] = units_.unitOf(quantity);
  }
  return units;
}

Json JsonValues::number(const double value, const Quantity quantity) const {
  return {{"value", value * units_.factorOf(quantity)}, {"unit", units_.unitOf(quantity)}};
}

Json JsonValues::property(const VariableProperty& property,
                          const char* const unit,
                          const double factor) const {
  VariableProperty scaled = property;
  scaled.scale(factor);
  Json object = {{"value", scaled.value()}, {"unit", unit}};
  if (scaled.isVaried()) {
    object["min"] = scaled.min();
    object["max"] = scaled.max();
    object["distributions"] = distributionsOf(scaled);
  }
  return object;
}

Json JsonValues::property(const VariableProperty& property, const Quantity quantity) const {
  return this->property(property, units_.unitOf(quantity), units_.factorOf(quantity));
}

Json JsonValues::temperature(const VariableProperty& property) const {
  return this->property(property, "K", 1.0);
}

Json JsonValues::propertySet(const PropertyValues& values) const {
  Json object = Json::object();
  for (std::size_t i = 0; i < values.size(); ++i) {
    const lamcraft::PropertyRow& row = lamcraft::kPropertyRows[i];
    object[row.label] = property(values[i], quantityOf(row.dimension));
  }
  return object;
}

Json JsonValues::cohesive(const std::array<VariableProperty, kCohesiveCount>& values) const {
  constexpr std::size_t kStiffnesses = 3;  // files hold them per metre, whatever their rows say
  Json object = group(lamcraft::kCohesiveRows, values);
  for (std::size_t i = 0; i < kStiffnesses; ++i) {
    object[lamcraft::kCohesiveRows[i].tag] = property(values[i], Quantity::traction);
  }
  return object;
}

Json JsonValues::snRecord(const SnRecord& record) const {
  return {{"stress", record.stress * units_.factorOf(Quantity::stress)},
          {"life", record.life},
          {"frequency", record.frequency},
          {"ratio", record.ratio},
          {"angle", record.angle}};
}

Json JsonValues::shearLaw(const ShearLaw& law) const {
  const double stress = units_.factorOf(Quantity::stress);
  auto points = Json::array();
  for (std::size_t i = 0; i < law.stress.size(); ++i) {
    points.push_back({{"stress", law.stress[i] * stress}, {"strain", law.strain[i]}});
  }
  return {{"m", law.constants.m / stress},
          {"b", law.constants.b},
          {"threshold", law.constants.thr * stress},
          {"matrix_coefficients", law.constants.c2mdeg},
          {"points", std::move(points)}};
}

Json JsonValues::fatigueConstants(const ResultRow& row) const {
  const double volume = 1.0 / units_.factorOf(Quantity::stress);
  return {{"U_breaking", row[0]},
          {"U_healing", row[1]},
          {"gamma_breaking", row[2] * volume},
          {"gamma_healing", row[3] * volume},
          {"Psi", row[4]},
          {"k", row[5]}};
}

Json JsonValues::decomposition(const StateDecomposition& decomposition) const {
  const double perKelvin = units_.factorOf(Quantity::thermalStress);
  auto thermalStress = Json::array();
  for (const double value : decomposition.slot.thermalStress) {
    thermalStress.push_back(value * perKelvin);
  }
  return {{"state", decomposition.state},
          {"stress", rowsOf(decomposition.slot.stress)},
          {"strain", rowsOf(decomposition.slot.strain)},
          {"thermal_stress", std::move(thermalStress)},
          {"thermal_strain", decomposition.slot.thermalStrain}};
}

}  // namespace lamkit
