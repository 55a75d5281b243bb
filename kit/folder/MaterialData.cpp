// SPDX-License-Identifier: BSD-3-Clause
#include "folder/MaterialData.h"

#include <algorithm>
#include <stdexcept>

#include "model/Constituent.h"

namespace lamkit {

namespace {

template <typename Node>
const Node* findNamed(const std::vector<Node>& nodes, const std::string_view name) {
  for (const Node& node : nodes) {
    if (node.name == name) {
      return &node;
    }
    if (const Node* const found = findNamed(node.children, name)) {
      return found;
    }
  }
  return nullptr;
}

const PropertyValues& intact(const EnvironmentData& environment,
                             const char* const inLamina,
                             const char* const inTow) {
  for (const char* const name : {inLamina, inTow}) {
    const FittedConstituent* const found = environment.find(name);
    if (found != nullptr && !found->states.empty()) {
      return found->states.front().properties;
    }
  }
  throw std::out_of_range(std::string("There is no ") + inLamina + " with properties.");
}

}  // namespace

std::array<double, kPropertyCount> valuesOf(const PropertyValues& set) {
  std::array<double, kPropertyCount> values{};
  std::transform(set.begin(), set.end(), values.begin(), [](const VariableProperty& property) {
    return property.value();
  });
  return values;
}

const PropertyValues& EnvironmentData::fiber() const {
  return intact(*this, lamcraft::constituents::kFiber, lamcraft::constituents::kFillFiber);
}

const PropertyValues& EnvironmentData::matrix() const {
  return intact(*this, lamcraft::constituents::kMatrix, lamcraft::constituents::kFillMatrix);
}

const FittedConstituent* EnvironmentData::find(const std::string_view wanted) const {
  return findNamed(constituents, wanted);
}

const ConstituentData* MaterialData::find(const std::string_view wanted) const {
  return findNamed(constituents, wanted);
}

}  // namespace lamkit
