// SPDX-License-Identifier: BSD-3-Clause
#include "check/ScatterRules.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "check/Wording.h"
#include "model/Constituent.h"
#include "variation/VariationReader.h"

namespace lamkit {

using abqinp::Keyword;
using lamcraft::Composite;
using lamcraft::VariableProperty;

namespace {

/// What PROP may name, and its value.
using Targets = std::vector<std::pair<std::string, double>>;

template <std::size_t Count>
void addGroup(Targets& targets,
              const std::array<lamcraft::GroupRow, Count>& rows,
              const std::array<VariableProperty, Count>& properties) {
  for (std::size_t i = 0; i < Count; ++i) {
    if (rows[i].deckName != nullptr) {
      targets.emplace_back(rows[i].deckName, properties[i].value());
    }
  }
}

void addSet(Targets& targets, const lamcraft::PropertySet& set) {
  for (std::size_t i = 0; i < lamcraft::kPropertyCount; ++i) {
    targets.emplace_back(lamcraft::kPropertyRows[i].tag, set.variables()[i].value());
  }
}

Targets environmentTargets(const Composite& composite, const std::string& owner) {
  Targets targets;
  if (composite.environments.empty()) {
    return targets;
  }
  const lamcraft::EnvironmentRecord& record = composite.environments.back();
  if (owner == "FIBER") {
    addSet(targets, record.fiber);
  } else if (owner == "MATRIX") {
    addSet(targets, record.matrix);
  } else if (owner == "STRENGTHS") {
    addGroup(targets,
             composite.isWoven() ? lamcraft::kWeaveStrengthRows : lamcraft::kUniStrengthRows,
             record.strengths);
  } else if (owner == "CRITICALINVARIANTS") {
    addGroup(targets, lamcraft::kInvariantRows, record.invariants);
  } else if (owner == "FRACTURE") {
    addGroup(targets, lamcraft::kFractureRows, record.fracture);
  } else if (owner == "DELAM") {
    addGroup(targets, lamcraft::kCohesiveRows, record.cohesive);
  }
  return targets;
}

Targets targetsOf(const Composite& composite, const std::string& owner) {
  namespace names = lamcraft::constituents;
  if (owner == "MATERIAL") {
    return {{"THICKNESS", composite.plyThickness.value()},
            {"REFTEMP", composite.referenceTemperature.value()}};
  }
  if (owner == "FVF") {
    const char* const fiber = composite.isWoven() ? names::kFillFiber : names::kFiber;
    return {{"FVF", composite.get(fiber).volumeFraction.value()}};
  }
  return environmentTargets(composite, owner);
}

/// A distribution's line.
struct DistributionRow {
  const char* name;
  std::size_t count;   ///< of its numbers
  std::size_t spread;  ///< place of what must be greater than 0, else the program drops it
  std::size_t center;  ///< place of what stands where the value is
};
constexpr std::array<DistributionRow, 5> kDistributions{{
    {"normal", 2, 1, 0},
    {"truncatednormal", 4, 1, 0},
    {"weibull2", 2, 1, 1},
    {"weibull3", 3, 1, 1},
    {"ext_i_large", 2, 1, 0},
}};

class ScatterCheck {
 public:
  ScatterCheck(const Keyword& variation,
               std::string what,
               const double value,
               const std::size_t environment,
               Report& report)
      : variation_(variation),
        what_(std::move(what)),
        value_(value),
        environment_(environment),
        report_(report),
        table_(lamcraft::variationTable(variation)) {}

  void run() {
    checkRange();
    for (std::size_t i = 0; i < kDistributions.size(); ++i) {
      checkDistribution(kDistributions[i], i + 1);
    }
  }

 private:
  void add(const std::size_t line, const std::size_t position, std::string message) {
    report_.add("scatter",
                Severity::warning,
                valueSpot(variation_, line, position, environment_),
                std::move(message));
  }

  void checkRange() {
    const double low = table_[0][0];
    const double high = table_[0][1];
    if (low > high) {
      add(0, 0, "the minimum of " + what_ + " is above its maximum: exchange them");
    } else if ((low != 0.0 || high != 0.0) && (value_ < low || value_ > high)) {
      add(0,
          0,
          what_ + " is " + shown(value_) + ", outside its range of " + shown(low) + " to " +
              shown(high) + ": check the unit");
    }
  }

  [[nodiscard]] bool isBlank(const std::size_t line, const std::size_t count) const {
    return std::all_of(table_[line].begin(),
                       table_[line].begin() + static_cast<std::ptrdiff_t>(count),
                       [](const double number) { return number == 0.0; });
  }

  void checkDistribution(const DistributionRow& row, const std::size_t line) {
    if (isBlank(line, row.count)) {
      return;
    }
    const std::string name = std::string(row.name) + " of " + what_;
    if (variation_.row(line).values().size() < row.count) {
      add(line,
          0,
          "the line of " + name + " has too few numbers, it needs " + std::to_string(row.count) +
              ": write all of them");
      return;
    }
    const double spread = table_[line][row.spread];
    if (spread <= 0.0) {
      add(line,
          row.spread,
          name + " has a spread of " + shown(spread) +
              ", with which the program drops it: write one "
              "above 0");
      return;
    }
    checkCenter(row, line, name);
    if (row.count == 4 && table_[line][2] >= table_[line][3]) {
      add(line, 2, "the lower bound of " + name + " is not below the upper one: exchange them");
    }
  }

  void checkCenter(const DistributionRow& row, const std::size_t line, const std::string& name) {
    constexpr double kFar = 0.5;
    const double center = table_[line][row.center];
    if (value_ != 0.0 && std::abs(center - value_) > kFar * std::abs(value_)) {
      add(line,
          row.center,
          name + " is centred at " + shown(center) + ", far from the value " + shown(value_) +
              ": check the unit and the line");
    } else if (row.spread != row.center && table_[line][row.spread] > std::abs(center)) {
      add(line,
          row.spread,
          name + " scatters by more than its mean: check the order of the numbers");
    }
  }

  const Keyword& variation_;
  std::string what_;
  double value_;
  std::size_t environment_;
  Report& report_;
  lamcraft::VariationTable table_;
};

bool isOfEnvironment(const std::string& owner) {
  return owner != "MATERIAL" && owner != "FVF";
}

}  // namespace

void checkScatter(const Reading& reading,
                  const Keyword& variation,
                  const Keyword& owner,
                  Report& report) {
  if (!variation.hasParameter("PROP")) {
    return;
  }
  const std::string property = variation.parameterText("PROP");
  const Targets targets = targetsOf(reading.composite(), owner.name());
  const std::size_t environment = isOfEnvironment(owner.name()) ? reading.environments.size() : 0;
  const auto target = std::find_if(
      targets.begin(), targets.end(), [&](const auto& t) { return t.first == property; });
  if (target == targets.end()) {
    std::vector<std::string> names;
    for (const auto& [name, value] : targets) {
      names.push_back(name);
    }
    const std::string near = nearest(property, names);
    report.add("unknown-text",
               Severity::error,
               parameterSpot(variation, "PROP", environment),
               "PROP is \"" + property + "\", which " + owner.name() + " has not: " +
                   (near.empty() ? "write " + listed(names) : "was " + near + " meant?"));
    return;
  }
  if (reading.isSound(&variation)) {
    ScatterCheck(variation, owner.name() + " " + property, target->second, environment, report)
        .run();
  }
}

}  // namespace lamkit
