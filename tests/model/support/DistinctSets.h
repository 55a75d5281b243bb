// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_MODEL_SUPPORT_DISTINCTSETS_H
#define LAMCRAFT_TESTS_MODEL_SUPPORT_DISTINCTSETS_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "model/PropertySet.h"

/// Property sets all of whose numbers differ, and what they hold in a form that compares.
namespace lamcraft {

using Twelve = std::array<double, kPropertyCount>;

inline constexpr Twelve kDistinct{
    101.0, 102.0, 103.0, 0.1, 0.2, 0.3, 41.0, 42.0, 43.0, 1e-6, 2e-6, 3e-6};

inline VariationTable scatterOf(const double seed) {
  VariationTable table{};
  double next = seed;
  for (auto& row : table) {
    for (double& number : row) {
      number = next;
      next += 1.0;
    }
  }
  return table;
}

/// Everything a variable property holds, name excepted.
inline std::vector<double> numbersOf(const VariableProperty& property) {
  std::vector<double> numbers{property.value(), property.min(), property.max()};
  for (const Distribution* const distribution : property.distributions()) {
    for (std::size_t i = 0; i < distribution->parameterCount(); ++i) {
      numbers.push_back(distribution->parameter(i));
    }
  }
  return numbers;
}

inline Twelve workingOf(const PropertySet& set) {
  Twelve values{};
  std::copy_n(set.working(), values.size(), values.begin());
  return values;
}

inline Twelve valuesOf(const PropertySet& set) {
  Twelve values{};
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = set.variables()[i].value();
  }
  return values;
}

/// A set of the given symmetry whose twelve properties all differ, in value and in scatter.
inline PropertySet distinctSet(const Symmetry symmetry) {
  PropertySet set;
  set.load(kDistinct.data(), Symmetry::orthotropic);
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    set.variables()[i].fill(scatterOf(100.0 * static_cast<double>(i + 1)));
  }
  set.symmetry = symmetry;
  return set;
}

}  // namespace lamcraft

#endif
