// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "check/CurveRules.h"
#include "check/MaterialRules.h"
#include "check/Sets.h"
#include "check/Wording.h"
#include "model/UnitFactors.h"
#include "shear/ShearCurve.h"

namespace lamkit {

using abqinp::Keyword;

namespace {

/// A factor by which strains may be off, and why.
struct StrainSlip {
  double factor;  ///< measured initial slope over the shear modulus
  const char* why;
};
constexpr std::array<StrainSlip, 5> kStrainSlips{{
    {0.01, "strains look like per cent: divide them by 100"},
    {1e-6, "strains look like microstrain: divide them by 1e6"},
    {1e-3, "strains look like per mille: divide them by 1000"},
    {2.0, "strains look like tensor shear strains: double them"},
    {0.5, "strains look doubled: give the engineering shear strain once"},
}};

struct Curve {
  std::vector<kx::ShearPoint> points;
  double strength;
  double modulus;   ///< G12 of the ply
  bool hasModulus;  ///< and it is what plies have
};

std::size_t strengthPlace(const lamcraft::Composite& composite) {
  return composite.isWoven() ? static_cast<std::size_t>(lamcraft::WeaveStrength::s12)
                             : static_cast<std::size_t>(lamcraft::UniStrength::s12);
}

Curve curveOf(const Reading& reading, const EnvironmentKeywords& environment) {
  const lamcraft::EnvironmentRecord& record =
      reading.composite().environments[environment.number - 1];
  Curve curve{{},
              record.strengths[strengthPlace(reading.composite())].value(),
              record.lamina.working(lamcraft::Property::g12),
              isUsual(setViews(reading, environment).lamina,
                      lamcraft::Property::g12,
                      familiesOf(systemName(reading)))};
  // Of a keyword before this one that was refused, half a point may be there.
  const std::size_t count = std::min(record.shearStress.size(), record.shearStrain.size());
  for (std::size_t i = 0; i < count; ++i) {
    curve.points.push_back({record.shearStress[i], record.shearStrain[i]});
  }
  return curve;
}

/// Whether the columns stand in the other order: strains are small, stresses are not.
bool isTransposed(const Curve& curve) {
  double stress = 0.0;
  double strain = 0.0;
  for (const kx::ShearPoint& point : curve.points) {
    stress = std::max(stress, std::abs(point.stress));
    strain = std::max(strain, std::abs(point.strain));
  }
  constexpr double kLargestStrain = 1.0;
  return stress < kLargestStrain && strain > kLargestStrain && strain > 0.5 * curve.strength;
}

void checkSlope(const Curve& curve, const Spot& spot, const double slope, Report& report) {
  constexpr double kTolerance = 0.15;
  constexpr double kSlipTolerance = 0.25;
  if (!curve.hasModulus || slope <= 0.0) {
    return;
  }
  const double ratio = slope / curve.modulus;
  if (std::abs(ratio - 1.0) <= kTolerance) {
    return;
  }
  const auto* const slip =
      std::find_if(kStrainSlips.begin(), kStrainSlips.end(), [&](const StrainSlip& s) {
        return std::abs(ratio / s.factor - 1.0) <= kSlipTolerance;
      });
  const bool isSlip = slip != kStrainSlips.end();
  const bool isFarOff = ratio < 0.1 || ratio > 10.0;
  report.add("shear-curve",
             isFarOff ? Severity::error : Severity::warning,
             spot,
             "the shear curve starts with " + shown(ratio) +
                 " times the G12 of LAMINA: " + (isSlip ? slip->why : "check both and their units"),
             {shown(slope), shown(curve.modulus)});
}

/// A slope of its own: that of the reduction exists only for curves that are reduced.
double initialSlope(const Curve& curve) {
  double slope = 0.0;
  double least = 0.0;
  for (const kx::ShearPoint& point : curve.points) {
    if (point.strain != 0.0 && point.stress != 0.0 &&
        (least == 0.0 || std::abs(point.strain) < least)) {
      least = std::abs(point.strain);
      slope = std::abs(point.stress) / least;
    }
  }
  return slope;
}

/// A point far above the strength has another unit than the others.
void checkPoints(const Curve& curve, const Spot& spot, Report& report) {
  constexpr double kFarAbove = 5.0;
  const bool isFarAbove =
      curve.strength > 0.0 &&
      std::any_of(curve.points.begin(), curve.points.end(), [&](const kx::ShearPoint& point) {
        return std::abs(point.stress) > kFarAbove * curve.strength;
      });
  if (isFarAbove) {
    report.add("shear-curve",
               Severity::warning,
               spot,
               "the shear curve has stresses far above the shear strength of STRENGTHS, " +
                   shown(curve.strength) + ": check their unit");
  }
}

void checkReduction(const Curve& curve, const Spot& spot, Report& report) {
  checkPoints(curve, spot, report);
  const kx::ShearReduction reduction = kx::reduceShearCurve(curve.points, curve.strength);
  switch (reduction.verdict) {
    case kx::CurveVerdict::belowStrength:
      report.add("shear-curve",
                 Severity::warning,
                 spot,
                 "the shear curve does not reach the shear strength of STRENGTHS, " +
                     shown(curve.strength) +
                     ", and the environment goes without prefail data: add "
                     "points up to it");
      break;
    case kx::CurveVerdict::linear:
      report.add("shear-curve",
                 Severity::warning,
                 spot,
                 "the shear curve is a straight line or has fewer than three points, and the "
                 "environment goes without prefail data: add points or leave it out");
      break;
    case kx::CurveVerdict::reduced:
      break;
  }
  const bool isReduced = reduction.verdict == kx::CurveVerdict::reduced;
  checkSlope(curve, spot, isReduced ? reduction.law.initialModulus : initialSlope(curve), report);
}

}  // namespace

void checkShearCurve(const Reading& reading,
                     const EnvironmentKeywords& environment,
                     Report& report) {
  const Keyword* const keyword = environment.last("NLSHEAR");
  if (!reading.isSound(keyword) || !reading.isSound(environment.last("STRENGTHS"))) {
    return;
  }
  const Spot spot = valueSpot(*keyword, 0, 0, environment.number);
  const Curve curve = curveOf(reading, environment);
  if (curve.points.empty()) {
    report.add("shear-curve",
               Severity::warning,
               spotOf(*keyword, environment.number),
               "NLSHEAR has no points: add them, or remove it");
  } else if (isTransposed(curve)) {
    report.add("shear-curve",
               Severity::error,
               spot,
               "the columns of NLSHEAR look exchanged: stress comes first, strain second");
  } else {
    checkReduction(curve, spot, report);
  }
}

}  // namespace lamkit
