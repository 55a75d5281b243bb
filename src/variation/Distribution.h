// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_VARIATION_DISTRIBUTION_H
#define LAMCRAFT_VARIATION_DISTRIBUTION_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace lamcraft {

/// The parameters of a statistical distribution, carried from the deck to the data files; nothing
/// is computed from them. Each kind has its fixed name and parameters, all 0 at first.
///
/// Copied within a kind only.
class Distribution {
 public:
  static constexpr std::size_t kMaxParameters = 4;

  virtual ~Distribution() = default;

  /// The name that data files use, for example "weibull2".
  [[nodiscard]] const char* name() const noexcept;
  [[nodiscard]] std::size_t parameterCount() const noexcept;
  /// The name and the value of a parameter; `index` is below parameterCount().
  [[nodiscard]] const char* parameterName(std::size_t index) const noexcept;
  [[nodiscard]] double parameter(std::size_t index) const noexcept { return values_[index]; }
  void setParameter(std::size_t index, double value) noexcept { values_[index] = value; }

  /// A mark without a use; false.
  [[nodiscard]] bool flag() const noexcept { return flag_; }

  /// Whether a parameter that measures spread is greater than 0.
  [[nodiscard]] bool hasSpread() const noexcept;
  /// Multiplies every parameter but the dimensionless shape parameters.
  void scale(double factor) noexcept;

 protected:
  /// The row of the table of kinds.
  enum class Kind : std::uint8_t { normal, truncatedNormal, weibull2, weibull3, extILarge };

  explicit Distribution(Kind kind) noexcept : kind_(kind) {}
  Distribution(const Distribution&) noexcept = default;
  Distribution& operator=(const Distribution&) noexcept = default;

 private:
  Kind kind_;
  bool flag_ = false;
  std::array<double, kMaxParameters> values_{};
};

/// "normal": mean, stddev
class Gaussian final : public Distribution {
 public:
  Gaussian() noexcept : Distribution(Kind::normal) {}
};

/// "truncatednormal": mean, stddev, lowerbound, upperbound
class TruncGaussian final : public Distribution {
 public:
  TruncGaussian() noexcept : Distribution(Kind::truncatedNormal) {}
};

/// "weibull2": shapeparam, charvalue
class Weibull2 final : public Distribution {
 public:
  Weibull2() noexcept : Distribution(Kind::weibull2) {}
};

/// "weibull3": shapeparam, charvalue, locationparam
class Weibull3 final : public Distribution {
 public:
  Weibull3() noexcept : Distribution(Kind::weibull3) {}
};

/// "ext_i_large": charlargevalue, beta
class ExtILarge final : public Distribution {
 public:
  ExtILarge() noexcept : Distribution(Kind::extILarge) {}
};

}  // namespace lamcraft

#endif
