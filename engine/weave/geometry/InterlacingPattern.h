// SPDX-License-Identifier: BSD-3-Clause
#ifndef KX_WEAVE_GEOMETRY_INTERLACINGPATTERN_H
#define KX_WEAVE_GEOMETRY_INTERLACINGPATTERN_H

#include <optional>
#include <vector>

namespace kx {

/// Which tow lies on top at every crossing of one repeat of a weave.
///
/// Warp tows are counted along axis 1, fill tows along axis 2, both from 0 and periodic.
/// A plain weave repeats after two tows, an n-harness satin after n, each warp tow passing over
/// exactly one fill tow of the repeat.
class InterlacingPattern {
 public:
  /// The pattern of a harness number: below 2 a plain weave, 4, 5 or 8 a satin; nothing for others.
  static std::optional<InterlacingPattern> ofHarness(int harness);

  /// Tows of one repeat in either direction.
  int tows() const { return tows_; }

  /// +1 where the fill tow lies above the warp tow, -1 where it lies below; any integer indices.
  int side(int warp, int fill) const;

  /// The smallest displacement along the warp that turns each warp tow's crossings into those of
  /// the next: side(warp + 1, fill + step) = side(warp, fill). Nothing for the 4-harness satin.
  std::optional<int> step() const;

  /// A lattice operation that exchanges fill and warp: the crossing (warp, fill) goes to
  /// (warp' = fill + warpShift, fill' = mirror * warp + fillShift), with mirror +1 or -1.
  struct Exchange {
    int mirror = 1;
    int warpShift = 0;
    int fillShift = 0;
  };

  /// The operation that, joined with a turn-over of the ply, maps the weave onto itself. Every
  /// pattern here has one: a reflection, or for the 5-harness satin a rotary reflection.
  Exchange exchange() const;

 private:
  InterlacingPattern(int tows, std::vector<int> side);

  bool isKeptBy(const Exchange& exchange) const;
  bool isKeptByStep(int step) const;

  int tows_;
  std::vector<int> side_;
};

}  // namespace kx

#endif
