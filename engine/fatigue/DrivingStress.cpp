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
  return std::isfinite(record.stress) && record.stress != 0.0 && isPositive(record.cycles) &&
         std::isfinite(record.ratio) && std::isfinite(record.angle);
}

bool isCompressive(const SnRecord& record) noexcept {
  return std::abs(record.ratio) > 1.0 || (record.stress < 0.0 && record.ratio > -1.0);
}

double strengthOf(const SensedStrength& strength, const bool compressive) noexcept {
  return compressive ? strength.compression : strength.tension;
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
  SensedTest entry;
  entry.isCompressive = isCompressive(record);
  const double strength = strengthOf(normal_, entry.isCompressive);
  const double weight = isPositive(strength) && isPositive(shear_) ? strength / shear_ : 1.0;
  entry.test.peak = std::abs(record.stress) * std::hypot(normal, weight * shear);
  entry.test.ratio = std::abs(record.ratio) > 1.0 ? 1.0 / record.ratio : record.ratio;
  entry.test.cycles = record.cycles;
  entry.test.frequency = isPositive(record.frequency) ? record.frequency : 1.0;
  tests_.push_back(entry);
}

void DirectionalTests::addAxial(const SnRecord& record) {
  add(record, 1.0, 0.0);
}

void DirectionalTests::addOblique(const SnRecord& record, const double normal, const double shear) {
  add(record, normal, shear);
}

DirectionData DirectionalTests::data(const double concentration) const {
  const bool pushesOnly =
      !tests_.empty() && std::all_of(tests_.begin(), tests_.end(), [](const SensedTest& entry) {
        return entry.isCompressive;
      });
  DirectionData data;
  data.strength = strengthOf(normal_, pushesOnly);
  data.concentration = concentration;
  data.tests.reserve(tests_.size());
  for (const auto& entry : tests_) {
    const double own = strengthOf(normal_, entry.isCompressive);
    LifeTest test = entry.test;
    if (isPositive(own) && isPositive(data.strength)) {
      test.peak *= data.strength / own;
    }
    data.tests.push_back(test);
  }
  return data;
}

}  // namespace kx
