// SPDX-License-Identifier: BSD-3-Clause
#include "report/ReportData.h"

#include <algorithm>
#include <string>
#include <vector>

#include "report/LifeCurves.h"
#include "report/PlyCurves.h"
#include "report/ShearCurves.h"

namespace lamkit {

namespace {

using Json = nlohmann::ordered_json;

/// The kind of a constant's unit, by its name: "E11", "fiber v12", "matrix K".
const char* quantityOf(const std::string& name) {
  const std::size_t blank = name.rfind(' ');
  switch (name[blank == std::string::npos ? 0 : blank + 1]) {
    case 'v':
      return "ratio";
    case 'A':
      return "expansion";
    default:
      return "modulus";
  }
}

Json findingsOf(const std::vector<Finding>& findings) {
  auto array = Json::array();
  for (const Finding& finding : findings) {
    array.push_back({{"severity", nameOf(finding.severity)},
                     {"environment", finding.environment},
                     {"rule", finding.rule},
                     {"message", finding.message}});
  }
  return array;
}

/// What the deck gives of a unidirectional ply; the others follow from these by symmetry.
bool isMeasured(const std::size_t index, const bool isWoven) {
  switch (static_cast<Property>(index)) {
    case Property::e33:
    case Property::v13:
    case Property::g13:
    case Property::g23:
    case Property::a33:
      return isWoven;
    default:
      return true;
  }
}

/// The measured constants of the ply, with what start values and fitted constituents give for them.
Json startOf(const kx::Assessment& assessment, const PropertyValues& fitted, const bool isWoven) {
  auto rows = Json::array();
  std::array<double, kPropertyCount> predicted{};
  std::array<double, kPropertyCount> measured{};
  kx::copyTo(assessment.predicted, predicted.data());
  kx::copyTo(assessment.target, measured.data());
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    const std::string name = lamcraft::kPropertyRows[i].label;
    const bool isExpansion =
        lamcraft::kPropertyRows[i].dimension == lamcraft::Dimension::inverseTemperature;
    if (isMeasured(i, isWoven) && (isExpansion ? measured[i] != 0.0 : measured[i] > 0.0)) {
      rows.push_back({{"name", name},
                      {"quantity", quantityOf(name)},
                      {"predicted", predicted[i]},
                      {"measured", measured[i]},
                      {"fitted", fitted[i].value()}});
    }
  }
  return rows;
}

Json constantsOf(const kx::Assessment& assessment) {
  auto rows = Json::array();
  for (const auto* const group : {&assessment.elastic, &assessment.expansions}) {
    for (const kx::AssessedConstant& constant : *group) {
      const std::string name(constant.name);
      rows.push_back({{"name", name},
                      {"quantity", quantityOf(name)},
                      {"start", constant.start},
                      {"fitted", constant.fitted},
                      {"width", constant.width},
                      {"z", constant.z},
                      {"deviation", constant.standardDeviation},
                      {"deviationInWidths", constant.deviationInWidths},
                      {"resolution", constant.resolution},
                      {"atBound", constant.isAtBound}});
    }
  }
  return rows;
}

Json setOf(const PropertyValues& values) {
  auto numbers = Json::array();
  for (const VariableProperty& value : values) {
    numbers.push_back(value.value());
  }
  return numbers;
}

Json offAxisOf(const PropertyValues& lamina) {
  auto rows = Json::array();
  for (const OffAxis& point : offAxisCurve(kx::propertiesFrom(valuesOf(lamina).data()))) {
    rows.push_back({point.angle, point.modulus, point.shear, point.ratio});
  }
  return rows;
}

Json strengthsOf(const EnvironmentData& environment, const bool isWoven) {
  auto rows = Json::array();
  for (std::size_t i = 0; i < kStrengthCount; ++i) {
    const char* const name =
        (isWoven ? lamcraft::kWeaveStrengthRows : lamcraft::kUniStrengthRows)[i].tag;
    rows.push_back({{"name", name}, {"value", environment.strengths[i].value()}});
  }
  return rows;
}

Json shearOf(const EnvironmentData& environment, const bool isWoven) {
  const std::optional<ShearChart> chart = shearChart(environment, isWoven);
  if (!chart) {
    return nullptr;
  }
  auto points = Json::array();
  for (std::size_t i = 0; i < chart->measured.size(); ++i) {
    points.push_back({chart->measured[i].strain, chart->measured[i].stress, chart->residuals[i]});
  }
  auto law = Json::array();
  for (const kx::ShearPoint& point : chart->law) {
    law.push_back({point.strain, point.stress});
  }
  return {{"points", points}, {"law", law}, {"g12", valueOf(environment.lamina(), Property::g12)}};
}

Json pointsOf(const std::vector<LifePoint>& points) {
  auto array = Json::array();
  for (const LifePoint& point : points) {
    array.push_back({point.life, point.stress});
  }
  return array;
}

Json livesOf(const MaterialFolder& folder, const std::size_t number) {
  const LifeChart chart = lifeChart(folder, number);
  if (chart.series.empty()) {
    return nullptr;
  }
  auto series = Json::array();
  for (const LifeSeries& one : chart.series) {
    series.push_back({{"angle", one.angle},
                      {"ratio", one.ratio},
                      {"frequency", one.frequency},
                      {"tests", pointsOf(one.tests)},
                      {"curve", pointsOf(one.curve)},
                      {"scatter", one.scatter ? Json(*one.scatter) : Json(nullptr)}});
  }
  return {{"recomputed", chart.isRecomputed}, {"series", series}};
}

Json statesOf(const EnvironmentData& environment) {
  auto rows = Json::array();
  for (const StateProperties& state : environment.composite) {
    rows.push_back({{"state", state.state}, {"properties", setOf(state.properties)}});
  }
  return rows;
}

Json environmentOf(const Subject& subject, const std::size_t index) {
  const MaterialData& data = subject.folder.data;
  const EnvironmentData& environment = data.environments[index];
  Json object = {{"number", index + 1},
                 {"temperature", environment.temperature},
                 {"moisture", environment.moisture},
                 {"mechanicalError", environment.errors.finalMechanical},
                 {"thermalError", environment.errors.finalThermal},
                 {"iterations", environment.iterations.mechanical},
                 {"lamina", setOf(environment.lamina())},
                 {"fiber", setOf(environment.fiber())},
                 {"matrix", setOf(environment.matrix())},
                 {"offAxis", offAxisOf(environment.lamina())},
                 {"strengths", strengthsOf(environment, data.isWoven())},
                 {"shear", shearOf(environment, data.isWoven())},
                 {"lives", livesOf(subject.folder, index)}};
  if (data.isWoven()) {
    object["states"] = statesOf(environment);
  }
  const auto& assessment = subject.assessments[index];
  if (assessment) {
    object["start"] = startOf(*assessment, environment.lamina(), data.isWoven());
    object["constants"] = constantsOf(*assessment);
    object["distance"] = assessment->distance();
    object["exact"] = assessment->isExact;
  }
  return object;
}

}  // namespace

nlohmann::ordered_json reportData(const Subject& subject,
                                  const FileFindings& verdict,
                                  const std::size_t maxEnvironments) {
  const MaterialData& data = subject.folder.data;
  auto environments = Json::array();
  const std::size_t shown = std::min(maxEnvironments, data.environments.size());
  for (std::size_t i = 0; i < shown; ++i) {
    environments.push_back(environmentOf(subject, i));
  }
  return {{"name", data.name},
          {"folder", subject.folder.path},
          {"woven", data.isWoven()},
          {"density", data.density},
          {"referenceTemperature", data.referenceTemperature.value()},
          {"verdict", verdictOf(verdict.findings)},
          {"findings", findingsOf(verdict.findings)},
          {"deckFault", subject.deckFault},
          {"hasDeck", subject.deck() != nullptr},
          {"total", data.environments.size()},
          {"environments", environments}};
}

}  // namespace lamkit
