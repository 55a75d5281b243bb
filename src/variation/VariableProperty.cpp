#include "variation/VariableProperty.h"

#include <algorithm>
#include <cmath>

namespace lamcraft {

VariableProperty::VariableProperty(const VariableProperty& other) noexcept
    : value_(other.value_),
      max_(other.max_),
      min_(other.min_),
      gaussian_(other.gaussian_),
      truncGaussian_(other.truncGaussian_),
      weibull2_(other.weibull2_),
      weibull3_(other.weibull3_),
      extILarge_(other.extILarge_) {}

VariableProperty& VariableProperty::operator=(const VariableProperty& other) noexcept {
  value_ = other.value_;
  max_ = other.max_;
  min_ = other.min_;
  gaussian_ = other.gaussian_;
  truncGaussian_ = other.truncGaussian_;
  weibull2_ = other.weibull2_;
  weibull3_ = other.weibull3_;
  extILarge_ = other.extILarge_;
  return *this;
}

void VariableProperty::setValue(const double value) noexcept {
  value_ = value;
  max_ = 0.0;
  min_ = 0.0;
}

void VariableProperty::fill(const VariationTable& table) noexcept {
  min_ = table[0][0];
  max_ = table[0][1];
  std::size_t row = 1;
  for (Distribution* const distribution : editableDistributions()) {
    for (std::size_t i = 0; i < distribution->parameterCount(); ++i) {
      distribution->setParameter(i, table[row][i]);
    }
    ++row;
  }
}

bool VariableProperty::isVaried() const noexcept {
  constexpr double kRounding = 1e-13;
  const auto all = distributions();
  return !(std::abs(min_ - max_) < kRounding) ||
         std::any_of(all.begin(), all.end(), [](const Distribution* const distribution) {
           return distribution->hasSpread();
         });
}

void VariableProperty::scale(const double factor) noexcept {
  value_ *= factor;
  max_ *= factor;
  min_ *= factor;
  for (Distribution* const distribution : editableDistributions()) {
    distribution->scale(factor);
  }
}

std::array<const Distribution*, VariableProperty::kDistributions> VariableProperty::distributions()
    const noexcept {
  return {&gaussian_, &truncGaussian_, &weibull2_, &weibull3_, &extILarge_};
}

std::array<Distribution*, VariableProperty::kDistributions>
VariableProperty::editableDistributions() noexcept {
  return {&gaussian_, &truncGaussian_, &weibull2_, &weibull3_, &extILarge_};
}

}  // namespace lamcraft
