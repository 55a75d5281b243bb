// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_GEOMETRY_WEAVEGEOMETRY_H
#define KX_WEAVE_GEOMETRY_WEAVEGEOMETRY_H

#include "weave/geometry/InterlacingPattern.h"

namespace kx {

/// A piece of a line normal to the ply, lower <= upper; empty when they are equal.
struct Interval {
  double lower = 0.0;
  double upper = 0.0;
  double length() const { return upper - lower; }
};

/// What a line normal to the ply meets at one point of the unit cell.
struct WeaveColumn {
  Interval fill;           ///< height range of the fill tow [pitch]
  Interval warp;           ///< height range of the warp tow [pitch]
  double fillSlope = 0.0;  ///< dx3/dx1 of the fill tow's centreline
  double warpSlope = 0.0;  ///< dx3/dx2 of the warp tow's centreline
  double fillFlank = 0.0;  ///< d/dx2 of half the fill tow's thickness
  double warpFlank = 0.0;  ///< d/dx1 of half the warp tow's thickness
};

/// Analytic height fields of the tows of one ply of a weave, one repeat, periodic in all axes.
///
/// Lengths are in tow pitches, equal for fill and warp. The warp tow n fills the strip
/// n <= x1 <= n + 1, the fill tow n the strip n <= x2 <= n + 1; x3 runs from -thickness()/2 to
/// +thickness()/2. Tows have cosine flanks and cosine crossings, touch each other over the
/// crossings, never interpenetrate, and meet their volume fractions exactly.
class WeaveGeometry {
 public:
  /// Volume fractions of the fill and warp tows in (0, 1) each, ply thickness over tow pitch > 0.
  /// Fractions that sum to more than 0.95 are scaled down to that sum, and a thickness that would
  /// incline a tow by more than 25 degrees is reduced to that inclination.
  WeaveGeometry(InterlacingPattern pattern,
                double fillFraction,
                double warpFraction,
                double thicknessOverPitch);

  /// Thickness of the ply over the tow pitch that stands in where none is given.
  static double defaultThickness(int tows);

  const InterlacingPattern& pattern() const { return pattern_; }
  double fillFraction() const { return fillFraction_; }
  double warpFraction() const { return warpFraction_; }
  double thickness() const { return thickness_; }
  double fillThickness() const { return fillThickness_; }  ///< at the tow's centre
  double warpThickness() const { return warpThickness_; }  ///< at the tow's centre
  double crossingLength() const { return crossingLength_; }
  double towWidth() const { return towWidth_; }

  /// What the normal through (x1, x2), both in [0, tows], meets.
  WeaveColumn column(double x1, double x2) const;

 private:
  double profile(double distance) const;
  double profileSlope(double distance) const;

  InterlacingPattern pattern_;
  double fillFraction_;
  double warpFraction_;
  double thickness_ = 0.0;
  double fillThickness_ = 0.0;
  double warpThickness_ = 0.0;
  double crossingLength_ = 0.0;
  double towWidth_ = 0.0;
};

}  // namespace kx

#endif
