// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "elastic/Properties.h"
#include "verdict/Rule.h"

namespace lamkit {

namespace {

bool isFiniteArray(const double* const first, const std::size_t count) {
  return std::all_of(first, first + count, [](const double value) { return std::isfinite(value); });
}

template <typename Array>
bool areFinite(const Array& values) {
  return isFiniteArray(values.data(), values.size());
}

bool areFinite(const DecompositionSlot& slot) {
  return areFinite(slot.stress) && areFinite(slot.strain) && areFinite(slot.thermalStress) &&
         areFinite(slot.thermalStrain);
}

/// A modulus of 0 carries nothing.
bool hasZeroModulus(const PropertyValues& set) {
  static constexpr std::array<Property, 6> kModuli{
      Property::e11, Property::e22, Property::e33, Property::g12, Property::g13, Property::g23};
  return std::any_of(kModuli.begin(), kModuli.end(), [&](const Property modulus) {
    return valueOf(set, modulus) == 0.0;
  });
}

struct SetRule {
  const char* name;
  bool (*isBroken)(const PropertyValues& set);
  const char* says;
};

/// The first that is broken speaks for a set.
constexpr std::array<SetRule, 3> kSetRules{{
    {"not-a-number",
     [](const PropertyValues& set) { return !areFinite(valuesOf(set)); },
     "holds a number that is none: use no constant of it, and look at the values of the deck"},
    {"zero-stiffness",
     hasZeroModulus,
     "has a modulus of 0: the fit never filled it in, or the deck gives none"},
    {"inadmissible",
     [](const PropertyValues& set) {
       return !kx::isAdmissible(kx::propertiesFrom(valuesOf(set).data()));
     },
     "would give energy when it is strained (its stiffness is not positive definite): an analysis "
     "with it diverges or lies"},
}};

/// Looks at every set of one environment.
class SetInspection {
 public:
  SetInspection(Findings& findings, const std::size_t environment)
      : findings_(findings), environment_(environment) {}

  void look(const std::string& name, const std::vector<StateProperties>& states) {
    for (const SetRule& rule : kSetRules) {
      const auto isBroken = [&rule](const StateProperties& state) {
        return rule.isBroken(state.properties);
      };
      const auto first = std::find_if(states.begin(), states.end(), isBroken);
      if (first == states.end()) {
        continue;
      }
      const auto count = std::count_if(first, states.end(), isBroken);
      report(rule.name, placeOf(name, states.size(), first->state, count) + " " + rule.says);
      return;
    }
  }

  void look(const FittedConstituent& constituent) {
    look(constituent.name, constituent.states);
    const auto& all = constituent.decompositions;
    const auto first = std::find_if(all.begin(), all.end(), [](const StateDecomposition& state) {
      return !areFinite(state.slot);
    });
    if (first != all.end()) {
      report("not-a-number",
             "the decomposition of " + constituent.name + " in damage state " +
                 std::to_string(first->state) +
                 " holds a number that is none: it has no stresses of its own to go by");
    }
    for (const FittedConstituent& child : constituent.children) {
      look(child);
    }
  }

  void report(const char* const rule, const std::string& message) {
    findings_.push_back(findingAbout(rule, Severity::error, environment_, message));
  }

 private:
  static std::string placeOf(const std::string& name,
                             const std::size_t states,
                             const std::int32_t first,
                             const std::ptrdiff_t count) {
    if (states < 2) {
      return name;
    }
    const std::string place = name + " in damage state " + std::to_string(first);
    return count < 2 ? place : place + " and " + std::to_string(count - 1) + " more";
  }

  Findings& findings_;
  std::size_t environment_;
};

/// Numbers of an environment that are in no set.
bool holdsOtherNumbers(const EnvironmentData& environment) {
  const SolveErrors& errors = environment.errors;
  const auto& strengths = environment.strengths;
  return areFinite(std::array<double, 5>{environment.temperature,
                                         errors.initialMechanical,
                                         errors.finalMechanical,
                                         errors.initialThermal,
                                         errors.finalThermal}) &&
         std::all_of(strengths.begin(), strengths.end(), [](const VariableProperty& strength) {
           return std::isfinite(strength.value());
         });
}

}  // namespace

Findings setRules(const Subject& subject) {
  Findings findings;
  const auto& environments = subject.folder.data.environments;
  for (std::size_t i = 0; i < environments.size(); ++i) {
    SetInspection inspection(findings, i);
    inspection.look("the composite", environments[i].composite);
    for (const FittedConstituent& constituent : environments[i].constituents) {
      inspection.look(constituent);
    }
    if (!holdsOtherNumbers(environments[i])) {
      inspection.report("not-a-number",
                        "a temperature, strength or error of the fit is no number: look at the "
                        "values of the deck");
    }
  }
  return findings;
}

}  // namespace lamkit
