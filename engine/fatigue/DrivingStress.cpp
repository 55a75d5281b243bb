// SPDX-License-Identifier: BSD-3-Clause
#include "fatigue/DrivingStress.h"

#include <algorithm>
#include <cmath>

namespace kx {
namespace {

constexpr double kDegree = 3.14159265358979323846 / 180.0;
constexpr double kAxisTolerance = 0.0174524064372835;  // sine of one degree

bool isPositive(const double value) noexcept {
  return std::isfinite(value) && value > 0.0;
}

bool isUsable(const SnRecord& record) noexcept {
  return std::isfinite(record.stress) && record.stress != 0.0 && isPositive(record.life) &&
         std::isfinite(record.ratio) && std::isfinite(record.angle);
}

bool isCompressive(const SnRecord& record) noexcept {
  return std::abs(record.ratio) > 1.0 || (record.stress < 0.0 && record.ratio > -1.0);
}

/// Tests of one sense, as fractions of their own strength where both strengths are given.
void append(std::vector<LifeTest> tests,
            const double own,
            const double reference,
            std::vector<LifeTest>& all) {
  const double scale = isPositive(own) && isPositive(reference) ? reference / own : 1.0;
  for (LifeTest& test : tests) {
    test.peak *= scale;
    all.push_back(test);
  }
}

}  // namespace

LoadDirection loadDirection(const double angle) noexcept {
  return {std::cos(angle * kDegree), std::sin(angle * kDegree)};
}

LoadAxis loadAxis(const double angle) noexcept {
  const auto direction = loadDirection(angle);
  if (std::abs(direction.sine) < kAxisTolerance) {
    return LoadAxis::along;
  }
  return std::abs(direction.cosine) < kAxisTolerance ? LoadAxis::across : LoadAxis::oblique;
}

void DirectionalTests::add(const SnRecord& record, const double normal, const double shear) {
  if (!isUsable(record)) {
    return;
  }
  const bool pushes = isCompressive(record);
  const double strength = pushes ? normal_.compression : normal_.tension;
  const double weight = isPositive(strength) && isPositive(shear_) ? strength / shear_ : 1.0;
  (pushes ? pushed_ : pulled_)
      .push_back({std::abs(record.stress) * std::hypot(normal, weight * shear),
                  std::abs(record.ratio) > 1.0 ? 1.0 / record.ratio : record.ratio,
                  record.life,
                  isPositive(record.frequency) ? record.frequency : 1.0});
}

void DirectionalTests::addAxial(const SnRecord& record) {
  add(record, 1.0, 0.0);
}

void DirectionalTests::addOblique(const SnRecord& record, const double normal, const double shear) {
  add(record, normal, shear);
}

DirectionData DirectionalTests::data(const double concentration) const {
  const bool pushesOnly = pulled_.empty() && !pushed_.empty();
  DirectionData data;
  data.strength = pushesOnly ? normal_.compression : normal_.tension;
  data.concentration = concentration;
  append(pulled_, normal_.tension, data.strength, data.tests);
  append(pushed_, normal_.compression, data.strength, data.tests);
  return data;
}

}  // namespace kx
