// SPDX-License-Identifier: BSD-3-Clause
#include "report/CsvFiles.h"

#include <array>
#include <charconv>
#include <vector>

namespace lamkit {

namespace {

constexpr std::size_t kOrder = 6;

/// Digits that give the same number back.
std::string numberText(const double value) {
  std::array<char, 32> text{};
  return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}

void addMatrix(std::string& csv,
               const std::string& start,
               const char* const name,
               const std::array<double, kOrder * kOrder>& columns) {
  for (std::size_t row = 0; row < kOrder; ++row) {
    for (std::size_t column = 0; column < kOrder; ++column) {
      csv += start + name + ',' + std::to_string(row + 1) + ',' + std::to_string(column + 1) + ',' +
             numberText(columns[row + kOrder * column]) + '\n';
    }
  }
}

void addVector(std::string& csv,
               const std::string& start,
               const char* const name,
               const std::array<double, kOrder>& values) {
  for (std::size_t row = 0; row < kOrder; ++row) {
    csv += start + name + ',' + std::to_string(row + 1) + ",1," + numberText(values[row]) + '\n';
  }
}

void addConstituents(std::string& csv,
                     const std::string& start,
                     const std::vector<FittedConstituent>& constituents) {
  for (const FittedConstituent& constituent : constituents) {
    for (const StateDecomposition& decomposition : constituent.decompositions) {
      const std::string line =
          start + constituent.name + ',' + std::to_string(decomposition.state) + ',';
      addMatrix(csv, line, "stress [-]", decomposition.slot.stress);
      addMatrix(csv, line, "strain [-]", decomposition.slot.strain);
      addVector(csv, line, "thermal stress [Pa/K]", decomposition.slot.thermalStress);
      addVector(csv, line, "thermal strain [1/K]", decomposition.slot.thermalStrain);
    }
    addConstituents(csv, start, constituent.children);
  }
}

}  // namespace

std::string decompositionsCsv(const MaterialData& data) {
  if (!data.isWoven()) {
    return {};
  }
  std::string csv =
      "environment,temperature [K],moisture,constituent,state,matrix,row,column,value\n";
  std::size_t number = 0;
  for (const EnvironmentData& environment : data.environments) {
    ++number;
    addConstituents(csv,
                    std::to_string(number) + ',' + numberText(environment.temperature) + ',' +
                        environment.moisture + ',',
                    environment.constituents);
  }
  return csv;
}

}  // namespace lamkit
