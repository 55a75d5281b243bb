// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MODEL_PROPERTYSET_H
#define LAMCRAFT_MODEL_PROPERTYSET_H

#include <array>
#include <cstdint>

#include "abqinp/Keyword.h"
#include "model/PropertyTables.h"
#include "model/UnitFactors.h"
#include "variation/VariableProperty.h"

namespace lamcraft {

/// The twelve elastic and thermal properties of one lamina, fiber or matrix, in the order of
/// kPropertyRows, held twice: as working values, which the library reads and overwrites in place,
/// and as variable properties, which add the scatter and go to the data files.
class PropertySet {
 public:
  /// Where the values come from; tells the unit conversion what is in base units already.
  enum class Kind : std::int32_t { systemDefaults = 0, deck = 1 };

  PropertySet() = default;
  /// Copies symmetry, values and scatter. The copy is of kind deck whatever the source is: who
  /// copies system defaults says so afterwards.
  PropertySet(const PropertySet& other);
  PropertySet& operator=(const PropertySet& other);
  PropertySet(PropertySet&&) = default;
  PropertySet& operator=(PropertySet&&) = default;
  ~PropertySet() = default;

  Kind kind = Kind::deck;
  Symmetry symmetry = Symmetry::unset;

  /// Twelve contiguous doubles.
  [[nodiscard]] double* working() noexcept { return working_.data(); }
  [[nodiscard]] const double* working() const noexcept { return working_.data(); }
  [[nodiscard]] double& working(Property property) noexcept { return working_[indexOf(property)]; }
  [[nodiscard]] double working(Property property) const noexcept {
    return working_[indexOf(property)];
  }

  [[nodiscard]] std::array<VariableProperty, kPropertyCount>& variables() noexcept {
    return variables_;
  }
  [[nodiscard]] const std::array<VariableProperty, kPropertyCount>& variables() const noexcept {
    return variables_;
  }

  /// Reads the properties that a set of this symmetry carries from the keyword's first data line,
  /// each required, then derives the dependent ones. The set is of kind deck from then on. Throws
  /// std::out_of_range when one is missing.
  void read(const abqinp::Keyword& keyword, Symmetry code);

  /// Stores twelve values as working and variable values, then derives the dependent ones. A code
  /// other than unset becomes the symmetry.
  void load(const double* twelve, Symmetry code);

  /// Copies the working values into the variable properties (the value alone; range and
  /// distributions stay), then derives the dependent ones.
  void publish();

  /// Derives the dependent properties from the independent ones. Isotropic: all from E11, v12 and
  /// A11. Transversely isotropic in 1-2: E22, v23, G12, G23, A22. In 2-3: E33, v13, G13, G23, A33.
  /// Others: nothing. Values come from the variable properties and bring their scatter along; a
  /// derived shear modulus comes from the working values and leaves its scatter alone.
  void makeConsistent();

  /// Multiplies the working values by the factors of their dimensions.
  void scaleWorking(const UnitFactors& factors) noexcept;
  /// Multiplies the variable properties, scatter included, likewise.
  void scaleVariables(const UnitFactors& factors) noexcept;

 private:
  std::array<double, kPropertyCount> working_{};
  std::array<VariableProperty, kPropertyCount> variables_{};
};

}  // namespace lamcraft

#endif
