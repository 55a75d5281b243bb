// SPDX-License-Identifier: BSD-3-Clause
#include "material/MaterialSystems.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace lamcraft {

namespace {

struct TypeRow {
  std::string_view name;
  std::string_view type;
};

constexpr std::string_view kUnknownType = "NA";
constexpr std::string_view kThermosetPolymer = "thermoset polymer";
constexpr std::string_view kCarbonLow = "carbon low";
constexpr std::string_view kGlass = "glass";
constexpr std::string_view kKevlar = "kevlar";

/// Systems whose name is one word; their matrix is a thermoset.
constexpr std::array<TypeRow, 3> kPlainSystems{{
    {"CFRP", kCarbonLow},
    {"GFRP", kGlass},
    {"KFRP", kKevlar},
}};

constexpr std::array<TypeRow, 5> kFibers{{
    {"CFL", kCarbonLow},
    {"CFI", "carbon intermediate"},
    {"CFH", "carbon high"},
    {"GF", kGlass},
    {"KF", kKevlar},
}};

constexpr std::array<TypeRow, 3> kMatrices{{
    {"TSP", kThermosetPolymer},
    {"TPP", "thermoplastic polymer"},
    {"BMI", "BMI"},
}};

template <std::size_t Count>
std::string_view typeOf(const std::array<TypeRow, Count>& rows, const std::string_view name) {
  const auto row =
      std::find_if(rows.begin(), rows.end(), [&](const TypeRow& r) { return r.name == name; });
  return row == rows.end() ? kUnknownType : row->type;
}

}  // namespace

std::optional<std::int32_t> materialSystemCode(const std::string_view name) noexcept {
  const auto* const system = std::find(kMaterialSystems.begin(), kMaterialSystems.end(), name);
  if (system == kMaterialSystems.end()) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(system - kMaterialSystems.begin()) + 1;
}

ConstituentTypes constituentTypes(const std::string_view systemName) {
  const std::size_t dash = systemName.find('-');
  if (dash != std::string_view::npos) {
    return {std::string(typeOf(kFibers, systemName.substr(0, dash))),
            std::string(typeOf(kMatrices, systemName.substr(dash + 1)))};
  }
  const std::string_view fiber = typeOf(kPlainSystems, systemName);
  const std::string_view matrix = fiber == kUnknownType ? kUnknownType : kThermosetPolymer;
  return {std::string(fiber), std::string(matrix)};
}

}  // namespace lamcraft
