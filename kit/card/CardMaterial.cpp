// SPDX-License-Identifier: BSD-3-Clause
#include "card/CardMaterial.h"

#include <algorithm>
#include <set>

#include "card/CardText.h"
#include "command/Context.h"

namespace lamkit {

namespace {

constexpr std::size_t kLongestName = 79;  ///< CalculiX takes 80, other solvers no more

template <typename Rows, typename Values>
auto scaled(const Rows& rows, const Values& values, const CardUnits& units) {
  std::array<double, std::tuple_size_v<Rows>> numbers{};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    numbers[i] = values[i].value() * units.factorOf(quantityOf(rows[i].dimension));
  }
  return numbers;
}

/// The three stiffnesses stand first; files hold them per metre, whatever their rows say.
std::array<double, kCohesiveCount> scaledCohesive(
    const std::array<VariableProperty, kCohesiveCount>& values, const CardUnits& units) {
  constexpr std::size_t kStiffnesses = 3;
  auto numbers = scaled(lamcraft::kCohesiveRows, values, units);
  for (std::size_t i = 0; i < kStiffnesses; ++i) {
    numbers[i] = values[i].value() * units.factorOf(Quantity::traction);
  }
  return numbers;
}

CardEnvironment cardEnvironment(const EnvironmentData& data,
                                const std::size_t number,
                                const CardUnits& units) {
  CardEnvironment environment;
  environment.number = number;
  environment.temperature = data.temperature;
  environment.properties = scaled(lamcraft::kPropertyRows, data.lamina(), units);
  environment.strengths = scaled(lamcraft::kUniStrengthRows, data.strengths, units);
  if (data.fracture) {
    environment.fracture = scaled(lamcraft::kFractureRows, *data.fracture, units);
  }
  if (data.cohesive) {
    environment.cohesive = scaledCohesive(*data.cohesive, units);
  }
  return environment;
}

std::string listOf(const std::set<std::string>& texts) {
  std::string list;
  for (const std::string& text : texts) {
    list += (list.empty() ? "" : ", ") + text;
  }
  return list;
}

std::string chosenMoisture(const MaterialFolder& folder,
                           const std::optional<std::string>& moisture) {
  std::set<std::string> moistures;
  for (const EnvironmentData& environment : folder.data.environments) {
    moistures.insert(environment.moisture);
  }
  if (moistures.empty()) {
    throw Failure(folder.path, "has no environments");
  }
  if (!moisture && moistures.size() > 1) {
    throw Failure(folder.path,
                  "has environments of several moistures (" + listOf(moistures) +
                      "): choose one with --moisture");
  }
  if (moisture && moistures.count(*moisture) == 0) {
    throw Failure(
        folder.path,
        "has no environment of the moisture " + *moisture + ", only " + listOf(moistures));
  }
  return moisture.value_or(*moistures.begin());
}

void sortByTemperature(std::vector<CardEnvironment>& environments, const std::string& moisture) {
  std::stable_sort(environments.begin(),
                   environments.end(),
                   [](const CardEnvironment& a, const CardEnvironment& b) {
                     return a.temperature < b.temperature;
                   });
  for (std::size_t i = 1; i < environments.size(); ++i) {
    const CardEnvironment& first = environments[i - 1];
    const CardEnvironment& second = environments[i];
    if (first.temperature == second.temperature) {
      throw AmbiguousCard("environments " + std::to_string(first.number) + " and " +
                          std::to_string(second.number) + " are both of " +
                          shortNumber(first.temperature) + " K and " + moisture +
                          ": a card has one line a temperature, remove one of them");
    }
  }
}

}  // namespace

CardMaterial cardOf(const MaterialFolder& folder,
                    const std::optional<std::string>& moisture,
                    const CardUnits& units) {
  CardMaterial card;
  card.folder = &folder;
  card.name = solverName(folder.data.name);
  card.moisture = chosenMoisture(folder, moisture);
  card.units = units;
  card.density = folder.data.density * units.factorOf(Quantity::density);
  card.referenceTemperature = folder.data.referenceTemperature.value();
  std::size_t number = 0;
  for (const EnvironmentData& environment : folder.data.environments) {
    ++number;
    if (environment.moisture == card.moisture) {
      card.temperatures.push_back(cardEnvironment(environment, number, units));
    }
  }
  sortByTemperature(card.temperatures, card.moisture);
  return card;
}

std::string solverName(const std::string& name) {
  const auto isLetter = [](const char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
  };
  const auto isTaken = [&isLetter](const char c) {
    return isLetter(c) || (c >= '0' && c <= '9') || c == '-';
  };
  std::string taken = name;
  for (char& character : taken) {
    character = isTaken(character) ? character : '_';
  }
  if (taken.empty() || !isLetter(taken.front())) {
    taken.insert(0, taken.empty() ? "material" : "M");
  }
  return taken.substr(0, kLongestName);
}

}  // namespace lamkit
