// SPDX-License-Identifier: BSD-3-Clause
#include "shear/ShearCurve.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "shear/SecantFit.h"

namespace kx {
namespace {

constexpr double kReached = 0.98;      // of the strength
constexpr double kStraight = 0.98;     // secant modulus over G0 of a linear curve
constexpr double kInitialPart = 0.25;  // of the strength: where G0 is measured
constexpr std::size_t kMostPoints = 256;

using Points = std::vector<ShearPoint>;

bool isUsable(const ShearPoint& point) noexcept {
  return std::isfinite(point.stress) && std::isfinite(point.strain) && point.stress > 0.0 &&
         point.strain > 0.0;
}

/// A digitised curve of a testing machine has more points than the law has wiggles.
Points thinned(const Points& points) {
  if (points.size() <= kMostPoints) {
    return points;
  }
  Points kept;
  kept.reserve(kMostPoints);
  for (std::size_t i = 0; i < kMostPoints; ++i) {
    kept.push_back(points[i * (points.size() - 1) / (kMostPoints - 1)]);
  }
  return kept;
}

bool isLowerStress(const ShearPoint& a, const ShearPoint& b) noexcept {
  return a.stress < b.stress;
}

/// Magnitudes sorted by strain, up to the first point that reaches the strength, or to the peak.
Points rising(const Points& measured, const double strength) {
  Points points;
  points.reserve(measured.size());
  for (const auto& point : measured) {
    const ShearPoint magnitude{std::abs(point.stress), std::abs(point.strain)};
    if (isUsable(magnitude)) {
      points.push_back(magnitude);
    }
  }
  std::sort(points.begin(), points.end(), [](const ShearPoint& a, const ShearPoint& b) {
    return a.strain < b.strain || (a.strain == b.strain && a.stress < b.stress);
  });
  auto last = std::find_if(points.begin(), points.end(), [strength](const ShearPoint& point) {
    return point.stress >= strength;
  });
  if (last == points.end()) {
    last = std::max_element(points.begin(), points.end(), isLowerStress);
  }
  if (last != points.end()) {
    points.erase(last + 1, points.end());
  }
  return thinned(points);
}

/// Slope through the origin; the points are relative to the peak.
double initialSlope(const Points& points, const double limit) noexcept {
  double work = 0.0;
  double square = 0.0;
  for (std::size_t i = 0; i < points.size() && (i < 2 || points[i].stress <= limit); ++i) {
    work += points[i].stress * points[i].strain;
    square += points[i].strain * points[i].strain;
  }
  return work / square;
}

bool isLinear(const Points& points, const double slope) noexcept {
  return points.size() < 3 || std::all_of(points.begin(), points.end(), [slope](const auto& point) {
           return point.stress > kStraight * slope * point.strain;
         });
}

/// Stresses near the ends of the numbers' range have laws beyond them.
bool isFinite(const SecantLaw& law) noexcept {
  return std::isfinite(law.initialModulus) && std::isfinite(law.m) && std::isfinite(law.b) &&
         std::isfinite(law.threshold);
}

}  // namespace

ShearReduction reduceShearCurve(const std::vector<ShearPoint>& measured, const double strength) {
  const bool isStrengthGiven = std::isfinite(strength) && strength > 0.0;
  Points points = rising(measured, isStrengthGiven ? strength : HUGE_VAL);
  ShearReduction result;
  if (points.empty()) {
    return result;
  }
  const double peak = std::max_element(points.begin(), points.end(), isLowerStress)->stress;
  const double reference = isStrengthGiven ? strength : peak;
  if (peak < kReached * reference) {
    return result;
  }
  const double largestStrain = points.back().strain;
  for (auto& point : points) {
    point.stress /= peak;
    point.strain /= largestStrain;
  }
  const double slope = initialSlope(points, kInitialPart * reference / peak);
  result.verdict = CurveVerdict::linear;
  if (!std::isfinite(slope) || slope <= 0.0 || isLinear(points, slope)) {
    return result;
  }
  const auto law = fitSecantLaw(points, slope);
  const SecantLaw inUnits{
      law.initialModulus / largestStrain * peak, law.m / peak, law.b, law.threshold * peak};
  if (!isFinite(inUnits)) {
    return result;
  }
  result.verdict = CurveVerdict::reduced;
  result.law = inUnits;
  result.lowestDegradation = law.degradation(points.back().stress);
  result.stressDeviation = largestStressDeviation(law, points) * peak;
  return result;
}

}  // namespace kx
