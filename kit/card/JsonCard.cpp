// SPDX-License-Identifier: BSD-3-Clause
#include <array>
#include <cstddef>
#include <nlohmann/json.hpp>

#include "card/CardFormats.h"
#include "card/JsonValues.h"
#include "findings/JsonFindings.h"

namespace lamkit {

namespace {

Json fitOf(const double initial, const double final, const std::int32_t iterations) {
  return {{"initial_error", initial}, {"final_error", final}, {"iterations", iterations}};
}

Json fitsOf(const EnvironmentData& data) {
  Json fits = {
      {"elastic_constants",
       fitOf(
           data.errors.initialMechanical, data.errors.finalMechanical, data.iterations.mechanical)},
      {"thermal_expansion",
       fitOf(data.errors.initialThermal, data.errors.finalThermal, data.iterations.thermal)}};
  if (data.hasFatigueFit) {
    fits["fatigue"] =
        fitOf(data.errors.initialFatigue, data.errors.finalFatigue, data.iterations.fatigue);
  }
  return fits;
}

Json constituentOf(const ConstituentData& data, const JsonValues& values) {
  Json constituent = {{"number", data.number},
                      {"name", data.name},
                      {"type", data.type},
                      {"volume_fraction", values.property(data.volumeFraction, Quantity::none)}};
  if (data.degradation) {
    constituent["degradation"] = *data.degradation;
  }
  constituent["constituents"] = listOf(data.children, [&values](const ConstituentData& child) {
    return constituentOf(child, values);
  });
  return constituent;
}

Json statesOf(const std::vector<StateProperties>& states, const JsonValues& values) {
  return listOf(states, [&values](const StateProperties& state) {
    return Json{{"state", state.state}, {"properties", values.propertySet(state.properties)}};
  });
}

Json fittedConstituentOf(const FittedConstituent& data, const JsonValues& values) {
  Json constituent = {{"number", data.number},
                      {"name", data.name},
                      {"type", data.type},
                      {"states", statesOf(data.states, values)}};
  if (data.fatigue) {
    constituent["fatigue"] = {{"longitudinal", values.fatigueConstants(data.fatigue->front())},
                              {"transverse", values.fatigueConstants(data.fatigue->back())}};
  }
  if (!data.decompositions.empty()) {
    constituent["decompositions"] =
        listOf(data.decompositions, [&values](const StateDecomposition& decomposition) {
          return values.decomposition(decomposition);
        });
  }
  constituent["constituents"] = listOf(data.children, [&values](const FittedConstituent& child) {
    return fittedConstituentOf(child, values);
  });
  return constituent;
}

Json laminateOf(const LaminateEntry& laminate) {
  return {{"name", laminate.name}, {"coefficients", laminate.coefficients}};
}

Json environmentOf(const CardMaterial& card, const std::size_t number, const JsonValues& values) {
  const EnvironmentData& data = card.folder->withFatigue(number - 1);
  Json environment = {{"environment", number},
                      {"temperature", {{"value", data.temperature}, {"unit", "K"}}},
                      {"fits", fitsOf(data)},
                      {"composite", statesOf(data.composite, values)}};
  environment["strengths"] = card.isWoven()
                                 ? values.group(lamcraft::kWeaveStrengthRows, data.strengths)
                                 : values.group(lamcraft::kUniStrengthRows, data.strengths);
  environment["sn_tests"] =
      listOf(data.snRecords, [&values](const SnRecord& record) { return values.snRecord(record); });
  if (data.invariants) {
    environment["critical_invariants"] = values.group(lamcraft::kInvariantRows, *data.invariants);
  }
  if (data.fracture) {
    environment["fracture"] = values.group(lamcraft::kFractureRows, *data.fracture);
  }
  if (data.cohesive) {
    environment["cohesive"] = values.cohesive(*data.cohesive);
  }
  if (data.shearLaw) {
    environment["shear"] = values.shearLaw(*data.shearLaw);
  }
  environment["laminates"] = listOf(data.laminates, laminateOf);
  environment["constituents"] =
      listOf(data.constituents, [&values](const FittedConstituent& constituent) {
        return fittedConstituentOf(constituent, values);
      });
  return environment;
}

}  // namespace

std::string jsonCard(const CardMaterial& card) {
  const MaterialData& data = card.folder->data;
  const JsonValues values(card.units);
  Json document = {{"schema", 1},
                   {"material", data.name},
                   {"kind", data.isWoven() ? "woven" : "unidirectional"},
                   {"source", {{"folder", card.folder->path}, {"lamkit", LAMKIT_VERSION}}},
                   {"units", values.units()},
                   {"verdict", verdictOf(card.findings)},
                   {"findings", jsonOf(card.findings)},
                   {"moisture", card.moisture}};
  if (data.harness) {
    document["harness"] = *data.harness;
  }
  document["density"] = values.number(data.density, Quantity::density);
  document["reference_temperature"] = values.temperature(data.referenceTemperature);
  document["ply_thickness"] = values.property(data.plyThickness, Quantity::length);
  document["constituents"] = listOf(
      data.constituents,
      [&values](const ConstituentData& constituent) { return constituentOf(constituent, values); });
  document["temperatures"] =
      listOf(card.temperatures, [&card, &values](const CardEnvironment& environment) {
        return environmentOf(card, environment.number, values);
      });
  return textOf(document);
}

}  // namespace lamkit
