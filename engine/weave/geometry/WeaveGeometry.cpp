// SPDX-License-Identifier: BSD-3-Clause
#include "weave/geometry/WeaveGeometry.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kx {

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kLargestTowFraction = 0.95;  // above, coarse grids keep no matrix pocket at all
constexpr double kSteepestSlope = 0.46630765815499858;  // tan(25 degrees)

// Height of a centreline over the middle plane in units of its amplitude, and its derivative.
struct Centreline {
  double height;
  double slope;
};

// `before` and `after` are the sides (+1, -1) left and right of the nearest tow boundary,
// `distance` is the signed distance from it.
Centreline centreline(const int before, const int after, const double distance, const double u) {
  if (before == after) {
    return {static_cast<double>(before), 0.0};
  }
  if (distance <= -u / 2) {
    return {static_cast<double>(before), 0.0};
  }
  if (distance >= u / 2) {
    return {static_cast<double>(after), 0.0};
  }
  const double phase = kPi * (distance + u / 2) / u;
  return {before * std::cos(phase), -before * std::sin(phase) * kPi / u};
}

}  // namespace

WeaveGeometry::WeaveGeometry(InterlacingPattern pattern,
                             const double fillFraction,
                             const double warpFraction,
                             const double thicknessOverPitch)
    : pattern_(std::move(pattern)), fillFraction_(fillFraction), warpFraction_(warpFraction) {
  const double given = fillFraction + warpFraction;
  if (given > kLargestTowFraction) {
    fillFraction_ *= kLargestTowFraction / given;
    warpFraction_ *= kLargestTowFraction / given;
  }
  const double total = fillFraction_ + warpFraction_;
  // A cosine flank over the whole width leaves 2/pi of a rectangle filled.
  const bool tight = total >= 2 / kPi;
  crossingLength_ = tight ? (1 - total) / (1 - 2 / kPi) : 1.0;
  towWidth_ = tight ? 1.0 : total * kPi / 2;
  const double share = std::max(fillFraction_, warpFraction_) / total;
  const double thickest = kSteepestSlope * crossingLength_ * 2 / (kPi * share);
  thickness_ = std::min(thicknessOverPitch, thickest);
  fillThickness_ = thickness_ * fillFraction_ / total;
  warpThickness_ = thickness_ * warpFraction_ / total;
}

double WeaveGeometry::defaultThickness(const int tows) {
  switch (tows) {
    case 4:
      return 0.20;
    case 5:
      return 0.16;
    case 8:
      return 0.25;
    default:
      return 0.12;
  }
}

double WeaveGeometry::profile(const double distance) const {
  if (towWidth_ < 1.0) {
    return distance < towWidth_ / 2 ? std::cos(kPi * distance / towWidth_) : 0.0;
  }
  const double flat = (1 - crossingLength_) / 2;
  return distance <= flat ? 1.0 : std::cos(kPi * (distance - flat) / crossingLength_);
}

// Derivative of profile() along a signed distance.
double WeaveGeometry::profileSlope(const double distance) const {
  const double side = distance < 0.0 ? -1.0 : 1.0;
  if (towWidth_ < 1.0) {
    return std::abs(distance) < towWidth_ / 2
               ? -kPi / towWidth_ * std::sin(kPi * distance / towWidth_)
               : 0.0;
  }
  const double flat = (1 - crossingLength_) / 2;
  const double past = std::abs(distance) - flat;
  return past <= 0.0 ? 0.0 : -side * kPi / crossingLength_ * std::sin(kPi * past / crossingLength_);
}

WeaveColumn WeaveGeometry::column(const double x1, const double x2) const {
  const int warp = static_cast<int>(std::floor(x1));
  const int fill = static_cast<int>(std::floor(x2));
  const int warpBoundary = static_cast<int>(std::lround(x1));
  const int fillBoundary = static_cast<int>(std::lround(x2));
  const Centreline fillLine = centreline(pattern_.side(warpBoundary - 1, fill),
                                         pattern_.side(warpBoundary, fill),
                                         x1 - warpBoundary,
                                         crossingLength_);
  const Centreline warpLine = centreline(pattern_.side(warp, fillBoundary - 1),
                                         pattern_.side(warp, fillBoundary),
                                         x2 - fillBoundary,
                                         crossingLength_);
  const double fillAmplitude = warpThickness_ / 2;
  const double warpAmplitude = -fillThickness_ / 2;
  const double fillHalf = fillThickness_ / 2 * profile(std::abs(x2 - fill - 0.5));
  const double warpHalf = warpThickness_ / 2 * profile(std::abs(x1 - warp - 0.5));
  const double fillHeight = fillAmplitude * fillLine.height;
  const double warpHeight = warpAmplitude * warpLine.height;
  return {{fillHeight - fillHalf, fillHeight + fillHalf},
          {warpHeight - warpHalf, warpHeight + warpHalf},
          fillAmplitude * fillLine.slope,
          warpAmplitude * warpLine.slope,
          fillThickness_ / 2 * profileSlope(x2 - fill - 0.5),
          warpThickness_ / 2 * profileSlope(x1 - warp - 0.5)};
}

}  // namespace kx
