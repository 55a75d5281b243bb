// SPDX-License-Identifier: BSD-3-Clause
#include "model/Composite.h"

namespace lamcraft {

Composite::Composite() : ParentCons(1, "composite", "composite") {}

EnvironmentRecord& Composite::addEnvironment(const std::string_view moistureText,
                                             const double temperature) {
  return environments.emplace_back(moistureText, temperature);
}

}  // namespace lamcraft
