// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_KIT_CARD_TESTFOLDER_H
#define LAMCRAFT_TESTS_KIT_CARD_TESTFOLDER_H

#include <string>

#include "folder/MaterialFolder.h"

namespace lamkit::test {

/// A folder with an environment at each of these temperatures and moistures: a ply whose E11 is the
/// temperature in GPa, with strengths, fracture energies and a cohesive law.
inline MaterialFolder plyAt(const std::vector<std::pair<double, const char*>>& conditions) {
  MaterialFolder folder;
  folder.path = "out/ply";
  folder.data.name = "my ply";
  folder.data.density = 1600.0;
  folder.data.referenceTemperature.setValue(450.0);
  for (const auto& [temperature, moisture] : conditions) {
    EnvironmentData environment;
    environment.temperature = temperature;
    environment.moisture = moisture;
    environment.composite.emplace_back();
    auto& properties = environment.composite.front().properties;
    const std::array<double, kPropertyCount> values{
        temperature * 1e9, 9e9, 8e9, 0.3, 0.31, 0.4, 5e9, 4e9, 3e9, 1e-7, 3e-5, 3.1e-5};
    for (std::size_t i = 0; i < values.size(); ++i) {
      properties[i].setValue(values[i]);
    }
    for (std::size_t i = 0; i < kStrengthCount; ++i) {
      environment.strengths[i].setValue(1e6 * static_cast<double>(i + 1));
    }
    environment.fracture.emplace();
    for (std::size_t i = 0; i < kFractureCount; ++i) {
      environment.fracture->at(i).setValue(10.0 * static_cast<double>(i + 1));
    }
    environment.cohesive.emplace();
    for (std::size_t i = 0; i < kCohesiveCount; ++i) {
      environment.cohesive->at(i).setValue(100.0 * static_cast<double>(i + 1));
    }
    folder.data.environments.push_back(environment);
  }
  return folder;
}

}  // namespace lamkit::test

#endif
