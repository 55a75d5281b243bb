// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MODEL_CONSTITUENT_H
#define LAMCRAFT_MODEL_CONSTITUENT_H

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "variation/VariableProperty.h"

namespace lamcraft {

/// One constituent of a composite: a phase, a tow, or the composite itself.
class Constituent {
 public:
  /// number: 1 matrix and 2 fiber in a unidirectional composite or a tow; 1 matrix pocket, 2 fill,
  /// 3 warp, 4 interface in a weave. type: the text that the data files give as "type".
  Constituent(std::int32_t number, std::string name, std::string type);
  virtual ~Constituent() = default;
  Constituent(const Constituent&) = delete;
  Constituent& operator=(const Constituent&) = delete;

  [[nodiscard]] std::int32_t number() const noexcept { return number_; }
  [[nodiscard]] const std::string& name() const noexcept { return name_; }
  [[nodiscard]] const std::string& type() const noexcept { return type_; }

  /// The children in order; none for a leaf.
  [[nodiscard]] virtual std::vector<const Constituent*> children() const { return {}; }

  VariableProperty volumeFraction;  ///< of the parent's volume; 0 until a keyword sets it
  double degradation = kNotGiven;   ///< factor on the moduli of the failed phase

  static constexpr double kNotGiven = -1.0;

 private:
  std::int32_t number_;
  std::string name_;
  std::string type_;
};

/// A constituent that owns others.
class ParentCons : public Constituent {
 public:
  using Constituent::Constituent;

  [[nodiscard]] std::vector<const Constituent*> children() const override;

  /// Takes the child in as the last one and returns it.
  Constituent& add(std::unique_ptr<Constituent> child);

  /// The child or descendant with exactly this name; null when there is none. Not owned.
  [[nodiscard]] const Constituent* find(std::string_view name) const;
  [[nodiscard]] Constituent* find(std::string_view name);

  /// The same for a name that the caller knows to be there.
  [[nodiscard]] const Constituent& get(std::string_view name) const;
  [[nodiscard]] Constituent& get(std::string_view name);

 private:
  std::vector<std::unique_ptr<Constituent>> children_;
};

/// The number of constituents as the library and the data files count them: the children, except
/// that four count as three and none as one.
[[nodiscard]] std::int32_t reportedCount(const Constituent& constituent);

/// The names that keywords, solves and data files look constituents up by.
namespace constituents {
inline constexpr const char* kMatrix = "matrix";
inline constexpr const char* kFiber = "fiber";
inline constexpr const char* kMatrixPocket = "matrixpocket";
inline constexpr const char* kFill = "fill";
inline constexpr const char* kWarp = "warp";
inline constexpr const char* kInterface = "interface";
inline constexpr const char* kFillMatrix = "fill_matrix";
inline constexpr const char* kFillFiber = "fill_fiber";
inline constexpr const char* kWarpMatrix = "warp_matrix";
inline constexpr const char* kWarpFiber = "warp_fiber";
}  // namespace constituents

}  // namespace lamcraft

#endif
