// SPDX-License-Identifier: BSD-3-Clause
#include "check/SetRules.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "check/Forms.h"
#include "check/MaterialRules.h"
#include "check/Quantities.h"
#include "check/Sets.h"
#include "check/Wording.h"
#include "model/UnitFactors.h"

namespace lamkit {

using lamcraft::Dimension;
using lamcraft::Property;

namespace {

const char* ownerOf(const SetKind kind) {
  switch (kind) {
    case SetKind::ply:
      return "plies";
    case SetKind::weave:
      return "woven plies";
    case SetKind::fiber:
      return "fibers";
    case SetKind::matrix:
      break;
  }
  return "matrices";
}

bool isTarget(const SetView& view) {
  return view.kind == SetKind::ply || view.kind == SetKind::weave;
}

Dimension dimensionOf(const Property property) {
  return lamcraft::kPropertyRows[indexOf(property)].dimension;
}

std::string labelOf(const Property property) {
  return lamcraft::kPropertyRows[indexOf(property)].label;
}

/// What a set is good for.
enum class SetState {
  none,        ///< nothing
  comparable,  ///< its values are in their units
  good         ///< it can be computed with
};

/// The checks of one set.
class SetCheck {
 public:
  SetCheck(const Reading& reading, const SetView& view, Report& report)
      : view_(view),
        report_(report),
        families_(familiesOf(systemName(reading))),
        unitSystem_(reading.composite().unitSystem),
        properties_(givenProperties(view.set->symmetry)) {}

  SetState run() {
    if (!areWithinBounds()) {
      return SetState::none;
    }
    const bool slipped = judgeUnits();
    const bool admissible = isAdmissible();
    return slipped ? SetState::none : (admissible ? SetState::good : SetState::comparable);
  }

 private:
  [[nodiscard]] std::string named(const Property property) const {
    return std::string(view_.title) + " " + labelOf(property) + " is " +
           shown(view_.value(property), unitOf(dimensionOf(property), unitSystem_));
  }

  void add(const char* rule, Severity severity, Property property, const std::string& what) {
    report_.add(rule,
                severity,
                view_.spotOf(property),
                named(property) + what,
                {shown(view_.value(property), unitOf(dimensionOf(property), unitSystem_)), {}});
  }

  bool areWithinBounds() {
    constexpr double kLeast = 1e-15;  // below it numbers are typing errors, or overflow as divisors
    bool isGood = true;
    for (const Property property : properties_) {
      const double value = view_.value(property);
      if (value != 0.0 && std::abs(value) < kLeast) {
        add("implausible", Severity::error, property, ", which is nothing: write 0 or the value");
        isGood = false;
        continue;
      }
      if (dimensionOf(property) == Dimension::stress) {
        isGood = isModulus(property, value) && isGood;
      } else if (dimensionOf(property) == Dimension::none) {
        isGood = isRatio(property, value) && isGood;
      }
    }
    return isGood;
  }

  bool isModulus(const Property property, const double value) {
    if (value > 0.0 || (value == 0.0 && isTarget(view_))) {
      return true;
    }
    add("out-of-range", Severity::error, property, ": a modulus is greater than 0");
    return false;
  }

  /// Bounds that hold for every material: below 0.5 in an isotropic one, within 1 in a plane of
  /// isotropy; the others depend on the moduli, and 1.5 is beyond all of them but those of
  /// laminates.
  bool isRatio(const Property property, const double value) {
    const bool isIsotropic = view_.set->symmetry == lamcraft::Symmetry::isotropic;
    const double high = isIsotropic ? 0.5 : (property == Property::v23 ? 1.0 : 1.5);
    if (value > -1.0 && value < high) {
      if (value < 0.0 && isTarget(view_)) {
        add("out-of-range", Severity::warning, property, ", which counts as not given");
      }
      return true;
    }
    const bool isPercent = value > 1.0 && value <= 60.0;
    add("out-of-range",
        Severity::error,
        property,
        ", Poisson's ratios here are below " + shown(high) +
            (isPercent ? ": was it meant in per cent?" : ": check the order of the values"));
    return false;
  }

  QuantityGroup groupFor(const Dimension dimension) const {
    return dimension == Dimension::stress ? groupOf(ownerOf(view_.kind), kStressUnits)
           : dimension == Dimension::inverseTemperature
               ? groupOf(ownerOf(view_.kind), kExpansionUnits)
               : groupOf(ownerOf(view_.kind), kRatioUnits);
  }

  bool judgeUnits() {
    const lamcraft::UnitFactors factors = lamcraft::unitFactors(unitSystem_);
    bool slipped = false;
    for (const Dimension dimension :
         {Dimension::stress, Dimension::none, Dimension::inverseTemperature}) {
      QuantityGroup group = groupFor(dimension);
      for (const Property property : properties_) {
        const double value = view_.value(property);
        const bool isNotGiven = dimension == Dimension::none && value < 0.0 && isTarget(view_);
        if (dimensionOf(property) == dimension && !isNotGiven) {
          group.quantities.push_back({labelOf(property),
                                      value,
                                      factorOf(dimension, factors),
                                      unitOf(dimension, unitSystem_),
                                      propertyRange(view_.kind, families_, labelOf(property)),
                                      view_.spotOf(property)});
        }
      }
      slipped = judge(group, report_) || slipped;
    }
    return slipped;
  }

  [[nodiscard]] bool isGiven(const Property property) const { return view_.value(property) > 0.0; }

  /// Of a target, what is given must go together; of a start set, all of it.
  bool isAdmissible() {
    if (view_.kind == SetKind::matrix || view_.kind == SetKind::fiber) {
      if (kx::isAdmissible(view_.base)) {
        return true;
      }
      addInadmissible();
      return false;
    }
    return isTargetAdmissible();
  }

  void addInadmissible() {
    report_.add("inadmissible",
                Severity::error,
                view_.spotOf(Property::e11),
                std::string(view_.title) +
                    " is no elastic solid: its energy is not positive for every strain, so moduli "
                    "and Poisson's ratios do not go together");
  }

  /// v_ij^2 E_j / E_i < 1 for each pair that is given, and the determinant where all are.
  bool isTargetAdmissible() {
    const auto pair = [&](const Property ei, const Property ej, const Property v) {
      return !isGiven(ei) || !isGiven(ej) || !isGiven(v) ||
             view_.value(v) * view_.value(v) * view_.value(ej) < view_.value(ei);
    };
    bool isGood = pair(Property::e11, Property::e22, Property::v12);
    if (view_.kind == SetKind::weave) {
      isGood = isGood && pair(Property::e11, Property::e33, Property::v13) &&
               pair(Property::e22, Property::e33, Property::v23);
    }
    bool isWhole = true;
    for (const Property property : properties_) {
      isWhole =
          isWhole && (dimensionOf(property) == Dimension::inverseTemperature || isGiven(property));
    }
    if (isGood && (!isWhole || kx::isAdmissible(view_.base))) {
      return true;
    }
    addInadmissible();
    return false;
  }

  const SetView& view_;
  Report& report_;
  Families families_;
  std::int32_t unitSystem_;
  std::vector<Property> properties_;
};

void addSwapped(const Spot& spot, const Severity severity, Report& report, std::string message) {
  report.add("swapped", severity, spot, std::move(message));
}

/// What the direction along the fiber must have more of than the one across it. Answers whether the
/// lamina's axes are in order.
bool checkOrder(const SetViews& views, const bool isWoven, Report& report) {
  const SetView& lamina = views.lamina;
  const SetView& fiber = views.fiber;
  const SetView& matrix = views.matrix;
  constexpr double kRounding = 0.97;
  const kx::Properties& ply = lamina.base;
  const bool isTurned = !isWoven && ply.e11 > 0.0 && ply.e11 < kRounding * ply.e22;
  if (isTurned) {
    addSwapped(lamina.spotOf(Property::e11),
               Severity::error,
               report,
               "LAMINA E11 is below E22, and the fiber runs along 1: are the two swapped?");
  }
  if (!isWoven && ply.a11 > 0.0 && ply.a22 > 0.0 && ply.a11 > ply.a22 &&
      ply.e11 * kRounding > ply.e22) {
    addSwapped(lamina.spotOf(Property::a11),
               Severity::warning,
               report,
               "LAMINA A11 is above A22, and the fiber, which expands least, runs along 1: are the "
               "two swapped?");
  }
  if (fiber.base.e11 < kRounding * fiber.base.e22) {
    addSwapped(fiber.spotOf(Property::e11),
               Severity::warning,
               report,
               "FIBER E11 is below E22: are the two swapped?");
  }
  if (matrix.base.e11 > fiber.base.e11) {
    addSwapped(matrix.spotOf(Property::e11),
               Severity::warning,
               report,
               "MATRIX E11 is above FIBER E11: are FIBER and MATRIX swapped?");
  }
  if (ply.e11 > fiber.base.e11 && ply.e11 > matrix.base.e11) {
    addSwapped(
        lamina.spotOf(Property::e11),
        Severity::warning,
        report,
        "LAMINA E11 is above that of fiber and matrix, which no ply can have: are LAMINA and "
        "FIBER swapped?");
  }
  return !isTurned;
}

/// A set that DEFAULT takes from a system without defaults is all zeros.
SetState checkDefaults(const SetView& view, Report& report) {
  if (kx::isAdmissible(view.base)) {
    return SetState::good;
  }
  report.add("missing-value",
             Severity::error,
             spotOf(*view.keyword, view.environment),
             std::string(view.title) +
                 ", DEFAULT takes what SYSTEM of MATERIAL names, which is no material system: name "
                 "one, or give values");
  return SetState::none;
}

SetState checkSet(const Reading& reading, const SetView& view, Report& report) {
  if (view.keyword == nullptr) {
    return SetState::none;
  }
  if (view.set->kind == lamcraft::PropertySet::Kind::systemDefaults) {
    return checkDefaults(view, report);
  }
  return reading.isSound(view.keyword) ? SetCheck(reading, view, report).run() : SetState::none;
}

void checkTarget(const SetView& lamina, const Reading& reading, Report& report) {
  if (!reading.isSound(lamina.keyword)) {
    return;
  }
  for (const Property property : givenProperties(lamina.set->symmetry)) {
    if (dimensionOf(property) != Dimension::inverseTemperature && lamina.value(property) > 0.0) {
      return;
    }
  }
  report.add("missing-value",
             Severity::warning,
             spotOf(*lamina.keyword, lamina.environment),
             "LAMINA gives no modulus and no Poisson's ratio, so that nothing is fitted: give what "
             "was measured");
}

/// Six values under LAMINA and a lamina's under STRENGTHS.
void checkExchange(const Reading& reading, const EnvironmentKeywords& environment, Report& report) {
  const abqinp::Keyword* const lamina = environment.last("LAMINA");
  const abqinp::Keyword* const strengths = environment.last("STRENGTHS");
  if (lamina == nullptr || strengths == nullptr) {
    return;
  }
  const auto count = [](const abqinp::Keyword& keyword) { return keyword.row(0).values().size(); };
  const std::size_t properties = givenProperties(reading.composite().laminaSymmetry()).size();
  if (count(*lamina) == lamcraft::kStrengthCount && count(*strengths) == properties) {
    addSwapped(spotOf(*lamina, environment.number),
               Severity::error,
               report,
               "LAMINA has as many values as STRENGTHS wants, and STRENGTHS as many as LAMINA: are "
               "the two swapped?");
  }
}

}  // namespace

bool checkSets(const Reading& reading, const EnvironmentKeywords& environment, Report& report) {
  const SetViews views = setViews(reading, environment);
  const SetState lamina = checkSet(reading, views.lamina, report);
  const SetState fiber = checkSet(reading, views.fiber, report);
  const SetState matrix = checkSet(reading, views.matrix, report);
  checkTarget(views.lamina, reading, report);
  checkExchange(reading, environment, report);
  const SetState worst = std::min({lamina, fiber, matrix});
  const bool isInOrder =
      worst == SetState::none || checkOrder(views, reading.composite().isWoven(), report);
  return worst == SetState::good && isInOrder;
}

}  // namespace lamkit
