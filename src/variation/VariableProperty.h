// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_VARIATION_VARIABLEPROPERTY_H
#define LAMCRAFT_VARIATION_VARIABLEPROPERTY_H

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>

#include "variation/Distribution.h"

namespace lamcraft {

/// The numbers that describe a property's scatter, one row each: minimum and maximum, then the
/// parameters of the five distributions in their order. Unused places are 0.
using VariationTable = std::array<std::array<double, Distribution::kMaxParameters>, 6>;

/// A material property: a nominal value, and its scatter as a range and as the parameters of five
/// distributions. All numbers are in the property's own unit, but for the dimensionless shape
/// parameters. A new one has no name and zeros. Distributions take memory once they are filled.
class VariableProperty {
 public:
  static constexpr std::size_t kDistributions = 5;

  VariableProperty() = default;
  VariableProperty(const VariableProperty& other);             ///< numbers only, without the name
  VariableProperty& operator=(const VariableProperty& other);  ///< keeps its own name
  VariableProperty(VariableProperty&&) noexcept = default;     ///< the name too
  ~VariableProperty() = default;

  [[nodiscard]] const std::string& name() const noexcept { return name_; }
  void setName(std::string name) noexcept { name_ = std::move(name); }

  [[nodiscard]] double value() const noexcept { return value_; }
  [[nodiscard]] double max() const noexcept { return max_; }
  [[nodiscard]] double min() const noexcept { return min_; }

  /// Sets the value and clears the range; the distributions stay.
  void setValue(double value) noexcept;
  /// Sets the value alone: what a fit found replaces what the deck gave, and the scatter stays.
  void publish(double value) noexcept { value_ = value; }
  /// Sets range and distributions, every number of them; the value stays.
  void fill(const VariationTable& table);

  /// Whether the range is wider than rounding (1e-13), or a distribution's spread is positive.
  [[nodiscard]] bool isVaried() const noexcept;
  /// Multiplies all numbers, but not the shape parameters.
  void scale(double factor) noexcept;

  /// The five distributions, in the order of the data files.
  [[nodiscard]] std::array<const Distribution*, kDistributions> distributions() const noexcept;

 private:
  struct Distributions {
    Gaussian gaussian;
    TruncGaussian truncGaussian;
    Weibull2 weibull2;
    Weibull3 weibull3;
    ExtILarge extILarge;

    [[nodiscard]] std::array<Distribution*, kDistributions> all() noexcept;
  };

  std::string name_;
  double value_ = 0.0;
  double max_ = 0.0;
  double min_ = 0.0;
  std::unique_ptr<Distributions> distributions_;  // null until filled: all parameters are 0
};

}  // namespace lamcraft

#endif
