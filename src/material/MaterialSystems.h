// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MATERIAL_MATERIALSYSTEMS_H
#define LAMCRAFT_MATERIAL_MATERIALSYSTEMS_H

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lamcraft {

/// The named material systems, in the order of the library's numbers, which start at 1.
inline constexpr std::array<std::string_view, 18> kMaterialSystems{
    "CFRP",
    "GFRP",
    "KFRP",
    "CFL-TSP",
    "CFL-TPP",
    "CFL-BMI",
    "CFI-TSP",
    "CFI-TPP",
    "CFI-BMI",
    "CFH-TSP",
    "CFH-TPP",
    "CFH-BMI",
    "GF-TSP",
    "GF-TPP",
    "GF-BMI",
    "KF-TSP",
    "KF-TPP",
    "KF-BMI",
};

/// The library's number of a named material system; nothing for a name that is none.
[[nodiscard]] std::optional<std::int32_t> materialSystemCode(std::string_view name) noexcept;

/// What the constituents of a material system are made of, in words.
struct ConstituentTypes {
  std::string fiber;
  std::string matrix;
};

/// The words for a system's name, such as "carbon low" and "thermoset polymer" for CFL-TSP; "NA"
/// for a name, or a half of one, that means nothing.
[[nodiscard]] ConstituentTypes constituentTypes(std::string_view systemName);

}  // namespace lamcraft

#endif
