// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_RANGES_H
#define LAMKIT_CHECK_RANGES_H

#include <string>
#include <string_view>

#include "model/Composite.h"

namespace lamkit {

/// What a material is made of, as far as its SYSTEM says.
enum class FiberFamily { carbon, glass, aramid, unknown };
enum class MatrixFamily { polymer, unknown };

struct Families {
  FiberFamily fiber = FiberFamily::unknown;
  MatrixFamily matrix = MatrixFamily::unknown;
};

/// The families that the composite's material system names.
[[nodiscard]] Families familiesOf(const std::string& systemName);

/// What values are usual, in N, m, K and kg.
struct Range {
  double low;
  double high;

  [[nodiscard]] bool holds(double value) const { return value >= low && value <= high; }
};

/// The sets of a deck that have ranges of their own.
enum class SetKind { ply, weave, fiber, matrix };

/// The usual range of a property of a set, by its label ("E11") of the ply, the weave, the fiber or
/// the matrix. Every family has a row for every property.
[[nodiscard]] Range propertyRange(SetKind set, const Families& families, std::string_view label);

/// The usual range of a strength by its place in the deck.
[[nodiscard]] Range strengthRange(bool isWoven, const Families& families, std::size_t place);

/// The usual strain at failure of a strength of a ply, by its place: strength over its modulus.
/// Zeros where there is no such rule.
[[nodiscard]] Range failureStrainRange(bool isWoven, const Families& families, std::size_t place);

/// The usual ranges of what does not depend on the family.
[[nodiscard]] Range densityRange(const Families& families);
[[nodiscard]] Range thicknessRange();
[[nodiscard]] Range temperatureRange(const Families& families);
[[nodiscard]] Range referenceRange(const Families& families);
[[nodiscard]] Range fractureRange(std::size_t place);
[[nodiscard]] Range cohesiveRange(std::size_t place);
[[nodiscard]] Range invariantRange();
[[nodiscard]] Range fiberFractionRange(bool isWoven);

}  // namespace lamkit

#endif
