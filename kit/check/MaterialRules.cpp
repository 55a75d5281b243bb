// SPDX-License-Identifier: BSD-3-Clause
#include "check/MaterialRules.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "check/NameRules.h"
#include "check/Quantities.h"
#include "check/Wording.h"
#include "model/Constituent.h"
#include "model/UnitFactors.h"

namespace lamkit {

using abqinp::Keyword;
using lamcraft::Dimension;
namespace constituents = lamcraft::constituents;

namespace {

constexpr double kCelsiusZero = 273.15;

/// Places on the data line of MATERIAL.
enum MaterialValue : std::size_t { unitSystem, density, thickness, referenceTemperature };

void judgeOne(const Quantity& quantity, QuantityGroup group, Report& report) {
  if (quantity.value < 0.0) {
    report.add("out-of-range",
               Severity::error,
               quantity.spot,
               quantity.spot.keyword + " " + quantity.name + " is " +
                   shown(quantity.value, quantity.unit) + ": it cannot be negative");
    return;
  }
  group.quantities.push_back(quantity);
  judge(group, report);
}

void noteMissing(const Keyword& material,
                 const std::size_t position,
                 const std::string& what,
                 Report& report) {
  report.add("missing-value",
             Severity::note,
             valueSpot(material, 0, position),
             "MATERIAL gives no " + what + ", which solvers need: write it");
}

void checkDensityAndThickness(const Reading& reading, const Keyword& material, Report& report) {
  const lamcraft::Composite& composite = reading.composite();
  const std::int32_t system = composite.unitSystem;
  const lamcraft::UnitFactors factors = lamcraft::unitFactors(system);
  const double volume = factors.length * factors.length * factors.length;
  if (composite.density == 0.0) {
    noteMissing(material, density, "density", report);
  }
  judgeOne({"density",
            composite.density,
            factors.mass / volume,
            densityUnit(system),
            densityRange(familiesOf(systemName(reading))),
            valueSpot(material, 0, density)},
           groupOf("plies", kDensityUnits),
           report);
  const double ply = composite.plyThickness.value();
  if (ply == 0.0) {
    noteMissing(material, thickness, "ply thickness", report);
  }
  judgeOne({"ply thickness",
            ply,
            factors.length,
            unitOf(Dimension::length, system),
            thicknessRange(),
            valueSpot(material, 0, thickness)},
           groupOf("plies", kLengthUnits),
           report);
}

/// A temperature that is usual when it is read as another scale's.
std::string otherScale(const double value, const double factor, const Range& range) {
  const double celsius = value + kCelsiusZero;
  const double fahrenheit = (value + 459.67) / 1.8;
  constexpr double kOneDegree = 1.0;
  if (std::abs(factor - 1.0) < 0.1) {
    return range.holds(celsius)
               ? "degrees Celsius? Write " + shown(std::round(celsius * 100) / 100) + " K"
               : std::string();
  }
  if (range.holds(value * kOneDegree) && value < 400.0 && value > 150.0) {
    return "K? Write " + shown(value * 1.8) + " R";
  }
  return range.holds(fahrenheit)
             ? "degrees Fahrenheit? Write " + shown(std::round(fahrenheit * 180) / 100) + " R"
             : std::string();
}

void checkReference(const Reading& reading, const Keyword& material, Report& report) {
  const lamcraft::Composite& composite = reading.composite();
  const double value = composite.referenceTemperature.value();
  const double factor = lamcraft::unitFactors(composite.unitSystem).temperature;
  const std::string unit = temperatureUnit(composite.unitSystem);
  const Range range = referenceRange(familiesOf(systemName(reading)));
  const Spot spot = valueSpot(material, 0, referenceTemperature);
  if (value <= 0.0) {
    report.add("reference-temperature",
               value < 0.0 ? Severity::error : Severity::warning,
               spot,
               "MATERIAL has no reference temperature above absolute zero, where thermal stresses "
               "would start: write the stress-free one as its fourth value",
               {shown(value, unit), {}});
    return;
  }
  if (range.holds(value * factor)) {
    return;
  }
  const std::string scale = otherScale(value, factor, range);
  const std::string what = "the reference temperature is " + shown(value, unit) + ", plies have " +
                           shownRange(range.low / factor, range.high / factor, unit);
  report.add(scale.empty() ? "implausible" : "unit-slip",
             scale.empty() ? Severity::warning : Severity::error,
             spot,
             what + (scale.empty() ? ": check it" : ": was it meant in " + scale),
             {shown(value, unit), shownRange(range.low / factor, range.high / factor, unit)});
}

/// A share of a whole. `what` names it.
bool checkFraction(const Spot& spot,
                   const std::string& what,
                   const double value,
                   const Range& usual,
                   Report& report) {
  if (value > 0.0 && value < 1.0) {
    if (!usual.holds(value)) {
      report.add("implausible",
                 Severity::warning,
                 spot,
                 what + " is " + shown(value) + ", usual is " +
                     shownRange(usual.low, usual.high, "") + ": check it",
                 {shown(value), shownRange(usual.low, usual.high, "")});
    }
    return true;
  }
  const bool isPercent = value >= 5.0 && value < 100.0;
  report.add(isPercent ? "unit-slip" : "out-of-range",
             Severity::error,
             spot,
             what + " is " + shown(value) + ", a fraction lies between 0 and 1" +
                 (isPercent ? ": was it meant in per cent? Write " + shown(value / 100.0)
                            : ": correct it"),
             {shown(value), "0 to 1"});
  return false;
}

bool checkFiberFraction(const Reading& reading, Report& report) {
  const Keyword* const keyword = reading.last("FVF");
  if (!reading.isSound(keyword)) {
    return false;
  }
  const lamcraft::Composite& composite = reading.composite();
  const bool isWoven = composite.isWoven();
  const double value = composite.get(isWoven ? constituents::kFillFiber : constituents::kFiber)
                           .volumeFraction.value();
  return checkFraction(
      valueSpot(*keyword, 0, 0),
      isWoven ? "the fiber volume fraction in the tows" : "the fiber volume fraction",
      value,
      fiberFractionRange(isWoven),
      report);
}

bool checkTowFractions(const Reading& reading, Report& report) {
  const Keyword* const keyword = reading.last("BVF");
  if (!reading.isSound(keyword)) {
    return false;
  }
  const double fill = reading.composite().get(constituents::kFill).volumeFraction.value();
  const double warp = reading.composite().get(constituents::kWarp).volumeFraction.value();
  constexpr Range kUsual{0.1, 0.75};
  const bool isFill = checkFraction(
      valueSpot(*keyword, 0, 0), "the volume fraction of the fill", fill, kUsual, report);
  const bool isWarp = checkFraction(
      valueSpot(*keyword, 0, 1), "the volume fraction of the warp", warp, kUsual, report);
  if (isFill && isWarp && fill + warp >= 1.0) {
    report.add(
        "out-of-range",
        Severity::error,
        valueSpot(*keyword, 0, 0),
        "fill and warp take " + shown(fill + warp) +
            " of the ply, and nothing is left for the matrix between them: their sum is below "
            "1",
        {shown(fill + warp), "below 1"});
    return false;
  }
  return isFill && isWarp;
}

/// A satin is refused without them.
void checkDegradation(const Reading& reading, Report& report) {
  const Keyword* const keyword = reading.last("DEGRADATION");
  if (!reading.isSound(keyword)) {
    return;
  }
  const lamcraft::Composite& composite = reading.composite();
  const double matrix = composite.get(constituents::kFillMatrix).degradation;
  const double fiber = composite.get(constituents::kFillFiber).degradation;
  const auto check = [&](const double factor, const char* const name, const std::size_t position) {
    if (factor > 0.0 && factor <= 1.0) {
      return true;
    }
    report.add("out-of-range",
               Severity::error,
               valueSpot(*keyword, 0, position),
               std::string("DEGRADATION ") + name + " is " +
                   (factor == lamcraft::Constituent::kNotGiven ? "not given" : shown(factor)) +
                   ", a failed " + name + " keeps a share between 0 and 1" +
                   (factor > 1.0 && factor <= 100.0 ? ": was it meant in per cent?" : ": write it"),
               {shown(factor), "0 to 1"});
    return false;
  };
  const bool isMatrix = check(matrix, "matrix", 0);
  const bool isFiber = check(fiber, "fiber", 1);
  std::ostringstream reasons;
  if (isMatrix && isFiber && !composite.validate(reasons)) {  // of a weave, it looks at these alone
    report.add("out-of-range",
               Severity::error,
               valueSpot(*keyword, 0, 0),
               "a satin is refused with factors of DEGRADATION this small: write at least 1e-4",
               {shown(matrix) + ", " + shown(fiber), {}});
  } else if (isMatrix && isFiber && fiber > matrix) {
    report.add("swapped",
               Severity::note,
               valueSpot(*keyword, 0, 0),
               "a failed fiber keeps more of its stiffness than a failed matrix: the order is "
               "matrix, fiber");
  }
}

}  // namespace

std::string systemName(const Reading& reading) {
  const Keyword* const material = reading.last("MATERIAL");
  return material != nullptr && material->hasParameter("SYSTEM") ? material->parameterText("SYSTEM")
                                                                 : std::string();
}

bool checkMaterial(const Reading& reading, Report& report) {
  const Keyword* const material = reading.last("MATERIAL");
  if (material != nullptr) {
    checkName(*material, report);
  }
  if (reading.isSound(material)) {
    checkDensityAndThickness(reading, *material, report);
    checkReference(reading, *material, report);
  }
  const bool isFiber = checkFiberFraction(reading, report);
  if (!reading.composite().isWoven()) {
    return isFiber;
  }
  checkDegradation(reading, report);
  const bool isTows = checkTowFractions(reading, report);
  return isFiber && isTows;
}

void checkTemperature(const Reading& reading,
                      const EnvironmentKeywords& environment,
                      Report& report) {
  const Keyword* const keyword = environment.last("ENVIRONMENT");
  if (!reading.isSound(keyword)) {
    return;
  }
  const lamcraft::Composite& composite = reading.composite();
  const double value = composite.environments[environment.number - 1].temperature;
  const double factor = lamcraft::unitFactors(composite.unitSystem).temperature;
  const std::string unit = temperatureUnit(composite.unitSystem);
  const Range range = temperatureRange(familiesOf(systemName(reading)));
  const Spot spot = parameterSpot(*keyword, "TEMPERATURE", environment.number);
  const double kelvin = value * factor;
  if (!(kelvin > 0.0)) {
    report.add("out-of-range",
               Severity::error,
               spot,
               "TEMPERATURE is " + shown(value, unit) +
                   ", and temperatures are absolute: add 273.15 to Celsius",
               {shown(value, unit), "above 0 " + unit});
    return;
  }
  // Cooling by liquid helium, hydrogen, nitrogen and natural gas.
  constexpr std::array<Range, 4> kCryogenic{
      {{4.0, 4.5}, {20.2, 20.5}, {76.5, 78.0}, {109.0, 113.0}}};
  const bool isCryogenic = std::any_of(
      kCryogenic.begin(), kCryogenic.end(), [&](const Range& r) { return r.holds(kelvin); });
  const bool isRankine = factor < 1.0;
  const double leastUsual = isRankine ? 200.0 : 150.0;  // 296 R, meant as K, is 164 K
  // A fraction of 0.15 is what a conversion from Celsius leaves.
  const bool isConverted =
      !isRankine && kelvin > 73.0 && std::abs(kelvin - std::floor(kelvin) - 0.15) < 0.011;
  if (isCryogenic || isConverted || (range.holds(kelvin) && kelvin >= leastUsual)) {
    return;
  }
  const std::string scale = otherScale(value, factor, {200.0, 480.0});
  constexpr Range kRoomInCelsius{15.0, 30.0};
  report.add(scale.empty() ? "implausible" : "unit-slip",
             !scale.empty() && kRoomInCelsius.holds(value) ? Severity::error : Severity::warning,
             spot,
             "TEMPERATURE is " + shown(value, unit) + " (" + shown(kelvin - kCelsiusZero) +
                 " degrees Celsius)" +
                 (scale.empty() ? ": check it" : ": was it meant in " + scale),
             {shown(value, unit), shownRange(range.low / factor, range.high / factor, unit)});
}

void checkMissingKeywords(const Reading& reading, const bool withFolders, Report& report) {
  const auto missing = [&](const Keyword* const owner,
                           const std::size_t environment,
                           const Severity severity,
                           const std::string& message) {
    report.add("missing-keyword",
               severity,
               owner == nullptr ? Spot{} : spotOf(*owner, environment),
               message);
  };
  const lamcraft::Composite& composite = reading.composite();
  const Keyword* const material = reading.last("MATERIAL");
  if (reading.last("FVF") == nullptr) {
    missing(material, 0, Severity::error, "the fiber volume fraction is missing: add *FVF");
  }
  if (composite.isWoven() && reading.last("BVF") == nullptr) {
    missing(material, 0, Severity::error, "the volume fractions of the tows are missing: add *BVF");
  }
  constexpr std::int32_t kLeastSatin = 2;
  if (composite.harness() >= kLeastSatin && reading.last("DEGRADATION") == nullptr) {
    missing(material, 0, Severity::error, "a satin is refused without *DEGRADATION: add it");
  }
  for (const EnvironmentKeywords& environment : reading.environments) {
    const Keyword* const opener = environment.last("ENVIRONMENT");
    const auto need = [&](const char* const name, const Severity severity, const char* const why) {
      if (environment.last(name) == nullptr) {
        missing(
            opener,
            environment.number,
            severity,
            "environment " + std::to_string(environment.number) + " has no *" + name + ": " + why);
      }
    };
    need("LAMINA", Severity::warning, "nothing is fitted, add the measured ply");
    need("FIBER", Severity::error, "add start values, or *FIBER, DEFAULT");
    need("MATRIX", Severity::error, "add start values, or *MATRIX, DEFAULT, LAW=ISO");
    need("STRENGTHS",
         composite.isWoven() ? Severity::warning : Severity::error,
         "all strengths are 0, add them");
  }
  if (reading.environments.empty()) {
    report.add("no-environment",
               Severity::error,
               material == nullptr ? Spot{} : spotOf(*material),
               "the material has no environment, and its data file would hold no properties: add "
               "*ENVIRONMENT and what was measured in it");
  }
  if (withFolders && reading.last("SOLVE") == nullptr) {
    report.add(
        "missing-solve",
        Severity::error,
        {},
        "there is no *SOLVE, MATDIR=..., so that a run has no folder unless its command line "
        "names one: add it");
  }
}

}  // namespace lamkit
