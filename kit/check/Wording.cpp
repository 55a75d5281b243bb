// SPDX-License-Identifier: BSD-3-Clause
#include "check/Wording.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <locale>
#include <sstream>

namespace lamkit {

namespace {

/// The unit systems of a deck: 1 to 4; any other code counts as 1.
struct UnitNames {
  const char* stress;
  const char* length;
  const char* energy;
  const char* temperature;
  const char* density;
};
constexpr std::array<UnitNames, 4> kUnitNames{{
    {"Pa", "m", "N/m", "K", "kg/m3"},
    {"MPa", "mm", "N/mm", "K", "kg/mm3"},
    {"psi", "in", "lbf/in", "R", "lb/in3"},
    {"psf", "ft", "lbf/ft", "R", "lb/ft3"},
}};

const UnitNames& unitNames(const std::int32_t system) {
  const bool isKnown = system >= 1 && system <= static_cast<std::int32_t>(kUnitNames.size());
  return kUnitNames[isKnown ? static_cast<std::size_t>(system - 1) : 0];
}

/// Edits that take one text to another: letters replaced, added, removed, and neighbours exchanged
/// (optimal string alignment).
std::size_t editsBetween(const std::string_view a, const std::string_view b) {
  std::vector<std::vector<std::size_t>> edits(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
  for (std::size_t i = 0; i <= a.size(); ++i) {
    for (std::size_t j = 0; j <= b.size(); ++j) {
      if (i == 0 || j == 0) {
        edits[i][j] = i + j;
        continue;
      }
      const std::size_t change = a[i - 1] == b[j - 1] ? 0 : 1;
      edits[i][j] =
          std::min({edits[i - 1][j] + 1, edits[i][j - 1] + 1, edits[i - 1][j - 1] + change});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
        edits[i][j] = std::min(edits[i][j], edits[i - 2][j - 2] + 1);
      }
    }
  }
  return edits[a.size()][b.size()];
}

std::string upperCase(const std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](const char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return result;
}

}  // namespace

std::string shown(const double number) {
  constexpr int kDigits = 4;
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out.precision(kDigits);
  out << number;
  return out.str();
}

std::string shown(const double number, const std::string& unit) {
  return unit.empty() ? shown(number) : shown(number) + " " + unit;
}

std::string shownRange(const double low, const double high, const std::string& unit) {
  return shown(low) + " to " + shown(high, unit);
}

std::string unitOf(const lamcraft::Dimension dimension, const std::int32_t unitSystem) {
  const UnitNames& names = unitNames(unitSystem);
  switch (dimension) {
    case lamcraft::Dimension::stress:
      return names.stress;
    case lamcraft::Dimension::length:
      return names.length;
    case lamcraft::Dimension::forcePerLength:
      return names.energy;
    case lamcraft::Dimension::inverseTemperature:
      return std::string("1/") + names.temperature;
    case lamcraft::Dimension::none:
      break;
  }
  return {};
}

std::string temperatureUnit(const std::int32_t unitSystem) {
  return unitNames(unitSystem).temperature;
}

std::string densityUnit(const std::int32_t unitSystem) {
  return unitNames(unitSystem).density;
}

std::string nearest(const std::string_view text, const std::vector<std::string>& names) {
  constexpr std::size_t kLongest = 64;  // no name is near a text of this length
  if (text.size() > kLongest) {
    return {};
  }
  const std::string wanted = upperCase(text);
  std::string best;
  std::size_t fewest = wanted.size() / 3 + 1;
  for (const std::string& name : names) {
    const std::size_t edits = editsBetween(wanted, name);
    if (edits < fewest || (edits == fewest && best.empty() && wanted.size() > 3)) {
      best = name;
      fewest = edits;
    }
  }
  return best;
}

std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) {
    text += (text.empty() ? "" : ", ") + name;
  }
  return text;
}

std::string listed(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) {
      text += i + 1 == names.size() ? " or " : ", ";
    }
    text += names[i];
  }
  return text;
}

}  // namespace lamkit
