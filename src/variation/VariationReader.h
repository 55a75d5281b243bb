// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_VARIATION_VARIATIONREADER_H
#define LAMCRAFT_VARIATION_VARIATIONREADER_H

#include <functional>
#include <string>
#include <vector>

#include "abqinp/Keyword.h"
#include "variation/VariableProperty.h"

namespace lamcraft {

/// Gives one property of a group its scatter, as a VARIATION keyword describes it: the parameter
/// PROP names the property, the data lines are the rows of a VariationTable.
///
/// It knows no material: a group is a table of deck names and the properties that each one fills.
/// The properties must outlive the reader; make it where it is used.
class VariationReader {
 public:
  struct Row {
    std::string name;                           ///< value of PROP, compared whole
    std::vector<VariableProperty*> properties;  ///< all of them are filled alike; not owned
  };

  /// `followUp`, when given, runs after each fill.
  explicit VariationReader(std::vector<Row> rows, std::function<void()> followUp = {});

  /// Raises std::invalid_argument, with "Invalid variation property:" and the PROP text, when no
  /// row has that name; what abqinp::Keyword raises when PROP is missing or a number cannot be
  /// read. No property has then changed.
  void read(const abqinp::Keyword& keyword) const;

 private:
  std::vector<Row> rows_;
  std::function<void()> followUp_;
};

/// The data lines of a keyword as a table of numbers; a missing or empty value is 0.
VariationTable variationTable(const abqinp::Keyword& keyword);

}  // namespace lamcraft

#endif
