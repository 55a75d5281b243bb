// SPDX-License-Identifier: BSD-3-Clause
#include "variation/VariableProperty.h"

#include <algorithm>
#include <cmath>

namespace lamcraft {

VariableProperty::VariableProperty(const VariableProperty& other) {
  *this = other;
}

VariableProperty& VariableProperty::operator=(const VariableProperty& other) {
  if (this != &other) {
    const auto* const distributions = other.distributions_.get();
    distributions_ = distributions ? std::make_unique<Distributions>(*distributions) : nullptr;
    value_ = other.value_;
    max_ = other.max_;
    min_ = other.min_;
  }
  return *this;
}

void VariableProperty::setValue(const double value) noexcept {
  value_ = value;
  max_ = 0.0;
  min_ = 0.0;
}

void VariableProperty::fill(const VariationTable& table) {
  distributions_ = std::make_unique<Distributions>();
  min_ = table[0][0];
  max_ = table[0][1];
  std::size_t row = 1;
  for (Distribution* const distribution : distributions_->all()) {
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
  if (distributions_ != nullptr) {
    for (Distribution* const distribution : distributions_->all()) {
      distribution->scale(factor);
    }
  }
}

std::array<const Distribution*, VariableProperty::kDistributions> VariableProperty::distributions()
    const noexcept {
  static const Distributions none;
  const auto& [gaussian, truncGaussian, weibull2, weibull3, extILarge] =
      distributions_ != nullptr ? *distributions_ : none;
  return {&gaussian, &truncGaussian, &weibull2, &weibull3, &extILarge};
}

std::array<Distribution*, VariableProperty::kDistributions>
VariableProperty::Distributions::all() noexcept {
  return {&gaussian, &truncGaussian, &weibull2, &weibull3, &extILarge};
}

}  // namespace lamcraft
