// SPDX-License-Identifier: BSD-3-Clause
#include "variation/Distribution.h"

namespace lamcraft {
namespace {

struct ParameterRow {
  const char* name;
  bool isScaled;
  bool isSpread;
};

struct KindRow {
  const char* name;
  std::size_t count;
  std::array<ParameterRow, Distribution::kMaxParameters> parameters;
};

constexpr bool kScaled = true;
constexpr bool kSpread = true;

constexpr std::array<KindRow, 5> kKindRows{{
    {"normal", 2, {{{"mean", kScaled, !kSpread}, {"stddev", kScaled, kSpread}}}},
    {"truncatednormal",
     4,
     {{{"mean", kScaled, !kSpread},
       {"stddev", kScaled, kSpread},
       {"lowerbound", kScaled, !kSpread},
       {"upperbound", kScaled, !kSpread}}}},
    {"weibull2", 2, {{{"shapeparam", !kScaled, !kSpread}, {"charvalue", kScaled, kSpread}}}},
    {"weibull3",
     3,
     {{{"shapeparam", !kScaled, !kSpread},
       {"charvalue", kScaled, kSpread},
       {"locationparam", kScaled, !kSpread}}}},
    {"ext_i_large", 2, {{{"charlargevalue", kScaled, !kSpread}, {"beta", kScaled, kSpread}}}},
}};

template <typename Kind>
const KindRow& rowOf(const Kind kind) noexcept {
  return kKindRows[static_cast<std::size_t>(kind)];
}

}  // namespace

const char* Distribution::name() const noexcept {
  return rowOf(kind_).name;
}

std::size_t Distribution::parameterCount() const noexcept {
  return rowOf(kind_).count;
}

const char* Distribution::parameterName(const std::size_t index) const noexcept {
  return rowOf(kind_).parameters[index].name;
}

bool Distribution::hasSpread() const noexcept {
  const KindRow& row = rowOf(kind_);
  for (std::size_t i = 0; i < row.count; ++i) {
    if (row.parameters[i].isSpread && values_[i] > 0.0) {
      return true;
    }
  }
  return false;
}

void Distribution::scale(const double factor) noexcept {
  const KindRow& row = rowOf(kind_);
  for (std::size_t i = 0; i < row.count; ++i) {
    values_[i] *= row.parameters[i].isScaled ? factor : 1.0;
  }
}

}  // namespace lamcraft
