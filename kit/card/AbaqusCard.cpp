// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <string_view>

#include "card/CardFormats.h"
#include "card/CardText.h"
#include "card/InpText.h"

namespace lamkit {

namespace {

using lamcraft::UniStrength;

/// The value of the row with this tag.
template <typename Rows, typename Values>
double valueOf(const Rows& rows, const Values& values, const std::string_view tag) {
  const auto row = std::find_if(
      rows.begin(), rows.end(), [tag](const lamcraft::GroupRow& each) { return each.tag == tag; });
  return values.at(static_cast<std::size_t>(row - rows.begin()));
}

double fracture(const CardEnvironment& environment, const std::string_view tag) {
  return valueOf(lamcraft::kFractureRows, *environment.fracture, tag);
}

double cohesive(const CardEnvironment& environment, const std::string_view tag) {
  return valueOf(lamcraft::kCohesiveRows, *environment.cohesive, tag);
}

std::vector<double> hashinStrengths(const CardEnvironment& environment) {
  return {environment[UniStrength::t1],
          environment[UniStrength::c1],
          environment[UniStrength::t2],
          environment[UniStrength::c2],
          environment[UniStrength::s12],
          environment[UniStrength::s23]};
}

std::vector<double> hashinEnergies(const CardEnvironment& environment) {
  return {fracture(environment, "GftC"),
          fracture(environment, "GfcC"),
          fracture(environment, "GmnC"),
          fracture(environment, "GmsC")};
}

std::vector<double> cohesiveStiffnesses(const CardEnvironment& environment) {
  return {cohesive(environment, "Knn"), cohesive(environment, "Kss"), cohesive(environment, "Ktt")};
}

std::vector<double> cohesiveStrengths(const CardEnvironment& environment) {
  return {cohesive(environment, "Sn"), cohesive(environment, "Ss"), cohesive(environment, "St")};
}

std::vector<double> cohesiveEnergies(const CardEnvironment& environment) {
  return {cohesive(environment, "GnC"), cohesive(environment, "GsC"), cohesive(environment, "GtC")};
}

bool arePositive(const std::vector<double>& numbers) {
  return std::all_of(
      numbers.begin(), numbers.end(), [](const double number) { return number > 0.0; });
}

bool hasHashin(const CardEnvironment& environment) {
  return environment.fracture && arePositive(hashinStrengths(environment)) &&
         arePositive(hashinEnergies(environment));
}

bool hasCohesive(const CardEnvironment& environment) {
  return environment.cohesive && arePositive(cohesiveStiffnesses(environment)) &&
         arePositive(cohesiveStrengths(environment)) &&
         arePositive(cohesiveEnergies(environment)) && cohesive(environment, "alpha") > 0.0;
}

/// The temperatures that lack something, as " at 296.15 K, 333.15 K".
std::string placesOf(const CardMaterial& card, bool (*has)(const CardEnvironment&)) {
  std::string places;
  for (const CardEnvironment& environment : card.temperatures) {
    if (!has(environment)) {
      places += (places.empty() ? " at " : ", ") + shortNumber(environment.temperature) + " K";
    }
  }
  return places;
}

std::string hashin(const CardMaterial& card) {
  if (card.isWoven()) {
    return commentOf("**", "No damage: Hashin's criteria are for unidirectional plies.");
  }
  const std::string missing = placesOf(card, hasHashin);
  if (!missing.empty()) {
    return commentOf("**",
                     "No damage: STRENGTHS, or GftC, GfcC, GmnC or GmsC of FRACTURE, are missing" +
                         missing + ".");
  }
  return commentOf("**", "Hashin's criteria are for elements in plane stress.") +
         inp::tableOf("*DAMAGE INITIATION, CRITERION=HASHIN", card, hashinStrengths) +
         inp::tableOf("*DAMAGE EVOLUTION, TYPE=ENERGY", card, hashinEnergies);
}

std::string cohesiveName(const CardMaterial& card) {
  constexpr std::size_t kLongestName = 79;
  const std::string ending = "_COHESIVE";
  return card.name.substr(0, kLongestName - ending.size()) + ending;
}

bool isOneExponent(const CardMaterial& card) {
  const double first = cohesive(card.temperatures.front(), "alpha");
  return std::all_of(card.temperatures.begin(),
                     card.temperatures.end(),
                     [first](const CardEnvironment& environment) {
                       return cohesive(environment, "alpha") == first;
                     });
}

std::string cohesiveMaterial(const CardMaterial& card) {
  const std::string missing = placesOf(card, hasCohesive);
  if (!missing.empty()) {
    return commentOf(
        "**", "No cohesive material: a value of DELAM that it takes is missing" + missing + ".");
  }
  if (!isOneExponent(card)) {
    return commentOf("**",
                     "No cohesive material: alpha of DELAM differs between the temperatures, and "
                     "the power of mixed modes takes one.");
  }
  const std::string power = cardNumber(cohesive(card.temperatures.front(), "alpha"));
  return commentOf("**", "The interface between plies, for cohesive elements.") +
         "*MATERIAL, NAME=" + cohesiveName(card) + "\n" +
         inp::tableOf("*ELASTIC, TYPE=TRACTION", card, cohesiveStiffnesses) +
         inp::tableOf("*DAMAGE INITIATION, CRITERION=QUADS", card, cohesiveStrengths) +
         inp::tableOf("*DAMAGE EVOLUTION, TYPE=ENERGY, MIXED MODE BEHAVIOR=BK, POWER=" + power,
                      card,
                      cohesiveEnergies);
}

}  // namespace

std::string abaqusCard(const CardMaterial& card) {
  return headOf(card, "**", "Material for Abaqus; not run with this solver") +
         inp::materialOf(card) + hashin(card) + cohesiveMaterial(card);
}

}  // namespace lamkit
