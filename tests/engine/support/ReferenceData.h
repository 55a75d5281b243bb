// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_TESTS_SUPPORT_REFERENCEDATA_H
#define KX_TESTS_SUPPORT_REFERENCEDATA_H

#include <fstream>
#include <stdexcept>
#include <string>

#include <nlohmann/json.hpp>

#include "elastic/Voigt.h"

namespace kx::test {

/// tests/reference/<file>, parsed. A reference into the call's result dangles: name it first.
inline nlohmann::json reference(const std::string& file) {
  std::ifstream stream(LAMCRAFT_TEST_DATA "/reference/" + file);
  if (!stream) {
    throw std::runtime_error("no reference data " + file);
  }
  return nlohmann::json::parse(stream);
}

/// The list in tests/reference/<file>, or the one under `key` there; never empty. By value, so that
/// a loop may run over the call.
inline nlohmann::json referenceCases(const std::string& file, const std::string& key = {}) {
  const nlohmann::json all = reference(file);
  nlohmann::json cases = key.empty() ? all : all.at(key);
  if (!cases.is_array() || cases.empty()) {
    throw std::runtime_error("no cases " + key);
  }
  return cases;
}

/// A set of the twelve constants, named as in the data files ("E11" ... "A33").
inline Properties propertiesFrom(const nlohmann::json& set) {
  const auto value = [&](const char* name) { return set.at(name).get<double>(); };
  return {value("E11"),
          value("E22"),
          value("E33"),
          value("v12"),
          value("v13"),
          value("v23"),
          value("G12"),
          value("G13"),
          value("G23"),
          value("A11"),
          value("A22"),
          value("A33")};
}

/// A list of six rows.
inline Matrix6 matrix6From(const nlohmann::json& rows) {
  Matrix6 matrix;
  for (Eigen::Index i = 0; i < 6; ++i) {
    for (Eigen::Index j = 0; j < 6; ++j) {
      matrix(i, j) =
          rows.at(static_cast<std::size_t>(i)).at(static_cast<std::size_t>(j)).get<double>();
    }
  }
  return matrix;
}

inline Vector6 vector6From(const nlohmann::json& list) {
  Vector6 vector;
  for (Eigen::Index i = 0; i < 6; ++i) {
    vector(i) = list.at(static_cast<std::size_t>(i));
  }
  return vector;
}

}  // namespace kx::test

#endif
