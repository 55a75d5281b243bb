// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_READING_H
#define LAMKIT_CHECK_READING_H

#include <cstddef>
#include <set>
#include <string_view>
#include <vector>

#include "abqinp/Keyword.h"
#include "material/Interpretation.h"

namespace lamkit {

/// The keywords that fill one environment, in deck order; ENVIRONMENT itself is the first, if there
/// is one.
struct EnvironmentKeywords {
  std::size_t number = 0;  ///< from 1
  std::vector<const abqinp::Keyword*> keywords;

  /// The last keyword of that name, whose values count; null when there is none.
  [[nodiscard]] const abqinp::Keyword* last(std::string_view name) const;
};

/// A deck as the program understands it, and where it got that from. Keywords are the deck's and
/// must outlive it.
struct Reading {
  lamcraft::Interpretation interpretation;
  std::vector<const abqinp::Keyword*> general;    ///< those of the material as a whole
  std::vector<EnvironmentKeywords> environments;  ///< as many as the composite has
  std::set<const abqinp::Keyword*> doubtful;      ///< whose values are not what they seem

  /// The last keyword of that name among the general ones; null when there is none.
  [[nodiscard]] const abqinp::Keyword* last(std::string_view name) const;

  /// Whether the keyword is there and its values are what the deck's author meant.
  [[nodiscard]] bool isSound(const abqinp::Keyword* keyword) const {
    return keyword != nullptr && doubtful.count(keyword) == 0;
  }

  [[nodiscard]] const lamcraft::Composite& composite() const { return interpretation.composite(); }
};

}  // namespace lamkit

#endif
