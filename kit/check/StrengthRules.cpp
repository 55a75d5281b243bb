// SPDX-License-Identifier: BSD-3-Clause
#include "check/StrengthRules.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "check/Forms.h"
#include "check/MaterialRules.h"
#include "check/Quantities.h"
#include "check/Sets.h"
#include "check/Wording.h"
#include "model/UnitFactors.h"

namespace lamkit {

using abqinp::Keyword;
using lamcraft::Dimension;

namespace {

/// Where the values of a group stand in the deck.
struct GroupPlace {
  std::size_t line;
  std::size_t position;
};

GroupPlace placeOf(const KeywordForm& form, std::size_t index) {
  std::size_t line = 0;
  while (line + 1 < form.lines.size() && index >= form.lines[line].size()) {
    index -= form.lines[line].size();
    ++line;
  }
  return {line, index};
}

/// The values of one keyword, by their index over all of its lines.
struct Values {
  const Reading& reading;
  const EnvironmentKeywords& environment;
  const Keyword& keyword;
  KeywordForm form;

  [[nodiscard]] std::string name(const std::size_t index) const {
    const GroupPlace place = placeOf(form, index);
    return form.lines[place.line][place.position];
  }
  [[nodiscard]] Spot spot(const std::size_t index) const {
    const GroupPlace place = placeOf(form, index);
    return valueSpot(keyword, place.line, place.position, environment.number);
  }
  [[nodiscard]] Quantity quantity(const std::size_t index,
                                  const double value,
                                  const Dimension dimension,
                                  const Range& range) const {
    const std::int32_t system = reading.composite().unitSystem;
    return {name(index),
            value,
            factorOf(dimension, lamcraft::unitFactors(system)),
            unitOf(dimension, system),
            range,
            spot(index)};
  }
};

class StrengthCheck {
 public:
  StrengthCheck(const Values& values, Report& report)
      : values_(values),
        report_(report),
        isWoven_(values.reading.composite().isWoven()),
        families_(familiesOf(systemName(values.reading))) {
    const auto& record = values.reading.composite().environments[values.environment.number - 1];
    for (std::size_t i = 0; i < strengths_.size(); ++i) {
      strengths_[i] = record.strengths[i].value();
    }
  }

  void run(const bool hasSets) {
    if (!arePositive()) {
      return;
    }
    if (judgeUnits()) {
      return;
    }
    checkOrder();
    if (hasSets) {
      checkFailureStrains();
    }
  }

 private:
  bool arePositive() {
    bool isGood = true;
    for (std::size_t i = 0; i < strengths_.size(); ++i) {
      if (strengths_[i] > 0.0) {
        continue;
      }
      const bool isRefused = !isWoven_ && i == static_cast<std::size_t>(lamcraft::UniStrength::s23);
      const bool isZero = strengths_[i] == 0.0;
      report_.add("out-of-range",
                  isRefused || !isZero ? Severity::error : Severity::warning,
                  values_.spot(i),
                  "STRENGTHS " + values_.name(i) + " is " + shown(strengths_[i]) +
                      (isZero ? ": a ply without it fails at once, give a strength"
                              : ": strengths are positive, those in compression as well"));
      isGood = isGood && isZero;
    }
    return isGood;
  }

  bool judgeUnits() {
    QuantityGroup group = groupOf(isWoven_ ? "woven plies" : "plies", kStressUnits);
    for (std::size_t i = 0; i < strengths_.size(); ++i) {
      group.quantities.push_back(values_.quantity(
          i, strengths_[i], Dimension::stress, strengthRange(isWoven_, families_, i)));
    }
    return judge(group, report_);
  }

  void swapped(const std::size_t index, const std::string& message) {
    report_.add("swapped", Severity::warning, values_.spot(index), message);
  }

  /// Whether one strength is above another by more than scatter.
  [[nodiscard]] bool isAbove(const std::size_t i,
                             const std::size_t j,
                             const double scatter = 1.1) const {
    return strengths_[i] > 0.0 && strengths_[j] > 0.0 && strengths_[i] > scatter * strengths_[j];
  }

  void checkOrder() {
    if (isWoven_) {
      checkKnee(0);
      checkKnee(2);
      checkKnee(4);
      return;
    }
    using S = lamcraft::UniStrength;
    const auto at = [](const S s) { return static_cast<std::size_t>(s); };
    const std::string order = "the order is T1, C1, T2, C2, S12, S23";
    if (families_.matrix == MatrixFamily::polymer && isAbove(at(S::t2), at(S::c2))) {
      swapped(at(S::t2),
              "STRENGTHS T2 is above C2, and polymers are stronger in compression: " + order);
    } else if (isAbove(at(S::t2), at(S::t1)) || isAbove(at(S::c2), at(S::c1))) {
      swapped(at(S::c1), "a strength across the fiber is above that along it: " + order);
    }
    constexpr double kSwapped = 1.3;  // some carbon is a little stronger in compression
    if (families_.fiber != FiberFamily::unknown && isAbove(at(S::c1), at(S::t1), kSwapped)) {
      swapped(at(S::c1),
              "STRENGTHS C1 is above T1, which plies of this fiber have not: are the two swapped?");
    }
  }

  void checkKnee(const std::size_t index) {
    if (isAbove(index, index + 1)) {
      swapped(index,
              "STRENGTHS " + values_.name(index) + " is above " + values_.name(index + 1) +
                  ", and the knee comes before the ultimate strength: are the two swapped?");
    }
  }

  void checkFailureStrains() {
    using P = lamcraft::Property;
    constexpr std::array<P, 6> kPlyModuli{P::e11, P::e11, P::e22, P::e22, P::g12, P::g12};
    constexpr std::array<P, 6> kWeaveModuli{P::e11, P::e11, P::e11, P::e11, P::g12, P::g12};
    const SetView lamina = setViews(values_.reading, values_.environment).lamina;
    for (std::size_t i = 0; i < strengths_.size(); ++i) {
      const P property = isWoven_ ? kWeaveModuli[i] : kPlyModuli[i];
      const double modulus = lamina.value(property);
      const Range range = failureStrainRange(isWoven_, families_, i);
      const double strain = strengths_[i] / modulus;
      const Quantity strength = values_.quantity(
          i, strengths_[i], Dimension::stress, strengthRange(isWoven_, families_, i));
      if (modulus <= 0.0 || strengths_[i] <= 0.0 || range.high == 0.0 || range.holds(strain) ||
          !strength.isUsual() || !isUsual(lamina, property, families_)) {
        continue;
      }
      report_.add(
          "implausible",
          Severity::warning,
          values_.spot(i),
          "STRENGTHS " + values_.name(i) + " over the LAMINA's " +
              lamcraft::kPropertyRows[indexOf(property)].label + " is a strain of " +
              shown(100.0 * strain) + " % at failure, plies have " +
              shownRange(100.0 * range.low, 100.0 * range.high, "%") + ": check both",
          {shown(100.0 * strain, "%"), shownRange(100.0 * range.low, 100.0 * range.high, "%")});
    }
  }

  const Values& values_;
  Report& report_;
  bool isWoven_;
  Families families_;
  std::array<double, lamcraft::kStrengthCount> strengths_{};
};

/// The quantities of a smaller group that have one dimension, judged together.
template <std::size_t Count>
void judgeGroup(const Values& values,
                const std::array<lamcraft::VariableProperty, Count>& properties,
                const std::array<lamcraft::GroupRow, Count>& rows,
                const Dimension dimension,
                QuantityGroup group,
                Range (*const rangeOf)(std::size_t),
                Report& report) {
  for (std::size_t i = 0; i < Count; ++i) {
    if (rows[i].dimension == dimension) {
      group.quantities.push_back(values.quantity(i, properties[i].value(), dimension, rangeOf(i)));
    }
  }
  judge(group, report);
}

template <std::size_t Count>
bool areNotNegative(const Values& values,
                    const std::array<lamcraft::VariableProperty, Count>& properties,
                    Report& report) {
  bool isGood = true;
  for (std::size_t i = 0; i < Count; ++i) {
    if (properties[i].value() < 0.0) {
      report.add("out-of-range",
                 Severity::error,
                 values.spot(i),
                 values.keyword.name() + " " + values.name(i) + " is " +
                     shown(properties[i].value()) + ": it cannot be negative");
      isGood = false;
    }
  }
  return isGood;
}

void checkInvariants(const Values& values, Report& report) {
  const auto& record = values.reading.composite().environments[values.environment.number - 1];
  if (areNotNegative(values, record.invariants, report)) {
    judgeGroup(
        values,
        record.invariants,
        lamcraft::kInvariantRows,
        Dimension::none,
        groupOf("critical strains", kRatioUnits),
        [](std::size_t) { return invariantRange(); },
        report);
  }
}

void checkFracture(const Values& values, Report& report) {
  const auto& record = values.reading.composite().environments[values.environment.number - 1];
  if (areNotNegative(values, record.fracture, report)) {
    judgeGroup(values,
               record.fracture,
               lamcraft::kFractureRows,
               Dimension::forcePerLength,
               groupOf("plies", kEnergyUnits),
               fractureRange,
               report);
  }
}

/// The stiffnesses have a unit of their own, although the program converts them as stresses.
void checkCohesive(const Values& values, Report& report) {
  constexpr std::size_t kStiffnesses = 3;
  const auto& record = values.reading.composite().environments[values.environment.number - 1];
  if (!areNotNegative(values, record.cohesive, report)) {
    return;
  }
  const std::int32_t system = values.reading.composite().unitSystem;
  QuantityGroup stiffness = groupOf("interfaces", kPenaltyUnits);
  QuantityGroup strength = groupOf("interfaces", kStressUnits);
  for (std::size_t i = 0; i < lamcraft::kCohesiveCount; ++i) {
    if (lamcraft::kCohesiveRows[i].dimension != Dimension::stress) {
      continue;
    }
    Quantity quantity =
        values.quantity(i, record.cohesive[i].value(), Dimension::stress, cohesiveRange(i));
    if (i < kStiffnesses) {
      quantity.unit = unitOf(Dimension::stress, system) + "/m";
      stiffness.quantities.push_back(quantity);
    } else {
      strength.quantities.push_back(quantity);
    }
  }
  judge(stiffness, report);
  judge(strength, report);
  judgeGroup(values,
             record.cohesive,
             lamcraft::kCohesiveRows,
             Dimension::forcePerLength,
             groupOf("interfaces", kEnergyUnits),
             cohesiveRange,
             report);
  judgeGroup(values,
             record.cohesive,
             lamcraft::kCohesiveRows,
             Dimension::length,
             groupOf("interfaces", kLengthUnits),
             cohesiveRange,
             report);
}

}  // namespace

void checkStrengths(const Reading& reading,
                    const EnvironmentKeywords& environment,
                    const bool hasSets,
                    Report& report) {
  const auto with = [&](const char* const name, const auto& check) {
    const Keyword* const keyword = environment.last(name);
    if (reading.isSound(keyword)) {
      check(
          Values{reading, environment, *keyword, formOf(*keyword, reading.composite().isWoven())});
    }
  };
  with("STRENGTHS", [&](const Values& values) { StrengthCheck(values, report).run(hasSets); });
  with("CRITICALINVARIANTS", [&](const Values& values) { checkInvariants(values, report); });
  with("FRACTURE", [&](const Values& values) { checkFracture(values, report); });
  with("DELAM", [&](const Values& values) { checkCohesive(values, report); });
}

}  // namespace lamkit
