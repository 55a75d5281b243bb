// SPDX-License-Identifier: BSD-3-Clause
#include "check/Reading.h"

#include <algorithm>

namespace lamkit {

namespace {

const abqinp::Keyword* lastOf(const std::vector<const abqinp::Keyword*>& keywords,
                              const std::string_view name) {
  const auto found = std::find_if(keywords.rbegin(), keywords.rend(), [&](const auto* keyword) {
    return keyword->name() == name;
  });
  return found == keywords.rend() ? nullptr : *found;
}

}  // namespace

const abqinp::Keyword* EnvironmentKeywords::last(const std::string_view name) const {
  return lastOf(keywords, name);
}

const abqinp::Keyword* Reading::last(const std::string_view name) const {
  return lastOf(general, name);
}

}  // namespace lamkit
