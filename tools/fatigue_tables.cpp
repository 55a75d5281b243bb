// SPDX-License-Identifier: BSD-3-Clause
// Prints how lives at one temperature follow from those at another, as the tables of docs/engine.md
// hold it:
//   fatigue_tables tests/reference/published.json
//
// The glass/epoxy GE1 along its fibers at R = 0.1 and -40, 23 and 60 C: constants fitted at one
// temperature predict the lives at the others; then constants whose energy is given, with the
// activation and the amplitude factor that suit the lives at 23 C best.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <limits>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "fatigue/UnidirectionalFatigue.h"

namespace {

using nlohmann::json;

struct TestSet {
  std::string name;
  double temperature = 0.0;
  double strength = 0.0;  // in tension [Pa]
  std::vector<kx::SnRecord> records;
};

TestSet setFrom(const json& published, const std::string& id, TestSet set) {
  for (const json& entry : published) {
    if (entry.at("id") != id) {
      continue;
    }
    for (const json& point : entry.at("targets").at("points")) {
      set.records.push_back({point.at(0).get<double>() * 1e6,
                             point.at(1).get<double>(),
                             point.at(2).get<double>(),
                             0.0,
                             0.1});
    }
  }
  return set;
}

/// Stresses stay those of the composite: the concentration only scales the activation.
kx::BondConstants constantsFrom(const TestSet& set) {
  const kx::PlyStrengths strengths{{set.strength, 0.0}, {}, 0.0};
  return kx::fitUnidirectionalFatigue(set.records, set.temperature, strengths, {1.0, 1.0})
      .longitudinal.constants;
}

double log10Deviation(const kx::BondConstants& constants,
                      const TestSet& set,
                      const kx::SnRecord& record) {
  const double predicted =
      kx::lnTimeToFailure(constants, {record.stress, record.ratio, set.temperature});
  return (predicted - std::log(record.life / record.frequency)) / std::log(10.0);
}

/// Root mean square of log10(predicted/measured life).
double scatter(const kx::BondConstants& constants, const TestSet& set) {
  double sum = 0.0;
  for (const auto& record : set.records) {
    sum += std::pow(log10Deviation(constants, set, record), 2);
  }
  return std::sqrt(sum / static_cast<double>(set.records.size()));
}

double meanDeviation(const kx::BondConstants& constants, const TestSet& set) {
  double sum = 0.0;
  for (const auto& record : set.records) {
    sum += log10Deviation(constants, set, record);
  }
  return sum / static_cast<double>(set.records.size());
}

/// Of all activations and amplitude factors, those with the least scatter at this energy.
kx::BondConstants bestWithEnergy(const double energy, const TestSet& set) {
  kx::BondConstants best;
  double least = std::numeric_limits<double>::infinity();
  for (int i = 0; i <= 20; ++i) {
    const double factor = 0.1 * i;
    for (int j = 0; j <= 2000; ++j) {
      const double activation = energy / set.strength * std::exp(-3.0 + 0.002 * j);
      const kx::BondConstants constants{energy, energy, activation, activation, 1.0, factor};
      const double value = scatter(constants, set);
      if (value < least) {
        least = value;
        best = constants;
      }
    }
  }
  return best;
}

/// Constants with the same energy and activation over R T, by the strength at the other
/// temperature.
kx::BondConstants scaled(kx::BondConstants constants, const TestSet& from, const TestSet& to) {
  const double thermal = to.temperature / from.temperature;
  constants.breakingEnergy *= thermal;
  constants.breakingActivation *= thermal * from.strength / to.strength;
  return constants;
}

std::string number(const double value, const int decimals) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
  return text.data();
}

std::string cell(const kx::BondConstants& constants, const TestSet& set) {
  return " " + number(scatter(constants, set), 2) + " (" +
         number(meanDeviation(constants, set), 1) + ") |";
}

}  // namespace

int main(int argc, char* argv[]) {
  if (argc != 2) {
    std::cerr << "usage: fatigue_tables published.json\n";
    return 2;
  }
  try {
    std::ifstream file(argv[1]);
    const json published = json::parse(file);
    const std::array<TestSet, 3> sets{
        setFrom(published, "sn_ge1_ud0_R0.1_m40C", {"-40 C", 233.15, 977.3e6, {}}),
        setFrom(published, "sn_ge1_ud0_R0.1_RT", {"23 C", 296.15, 828.2e6, {}}),
        setFrom(published, "sn_ge1_ud0_R0.1_p60C", {"60 C", 333.15, 760.8e6, {}})};
    std::cout << "| fitted at | U [kJ/mol] | U/(R T) | lives at -40 C | 23 C | 60 C |\n"
                 "|---|---|---|---|---|---|\n";
    for (const TestSet& fitted : sets) {
      const auto constants = constantsFrom(fitted);
      const double reduced = constants.breakingEnergy / (kx::kGasConstant * fitted.temperature);
      std::cout << "| " << fitted.name << " | " << number(constants.breakingEnergy / 1e3, 0)
                << " | " << number(reduced, 1) << " |";
      for (const TestSet& set : sets) {
        std::cout << cell(constants, set);
      }
      std::cout << '\n';
    }
    std::cout << "| 23 C, U/(R T) and gb S/(R T) kept | | |";
    for (const TestSet& set : sets) {
      std::cout << cell(scaled(constantsFrom(sets[1]), sets[1], set), set);
    }
    std::cout << '\n';
    std::cout << "\n| U given [kJ/mol] | lives at -40 C | 23 C | 60 C | strength at 23 C, over the "
                 "measured one |\n|---|---|---|---|---|\n";
    for (const double energy : {100e3, 105e3, 108e3, 111e3, 115e3, 120e3, 130e3, 150e3, 180e3}) {
      const auto constants = bestWithEnergy(energy, sets[1]);
      std::cout << "| " << number(energy / 1e3, 0) << " |";
      for (const TestSet& set : sets) {
        std::cout << cell(constants, set);
      }
      std::cout << ' '
                << number(kx::rampStrength(constants, sets[1].temperature) / sets[1].strength, 2)
                << " |\n";
    }
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
