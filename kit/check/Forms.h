// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_FORMS_H
#define LAMKIT_CHECK_FORMS_H

#include <cstddef>
#include <string>
#include <vector>

#include "abqinp/Keyword.h"
#include "model/PropertyTables.h"

namespace lamkit {

/// A parameter that a keyword has.
struct ParameterForm {
  std::string name;
  bool isRequired = false;
};

/// What a keyword is made of: its parameters, and for each data line the names of the quantities
/// that stand there.
struct KeywordForm {
  std::vector<ParameterForm> parameters;
  std::vector<std::vector<std::string>> lines;
  bool areRequired = false;  ///< the quantities; else each of them may be missing
  bool isTable = false;      ///< any number of lines, each as lines[0]
  bool leavesZeros = false;  ///< what is missing stays 0, which is a value of its own
};

/// The names of the program's keywords, in the order of its table.
[[nodiscard]] const std::vector<std::string>& keywordNames();

/// The form of one of the program's keywords, in a unidirectional or woven composite; the values of
/// LAMINA, FIBER and MATRIX are those of the program's own symmetry rules.
[[nodiscard]] KeywordForm formOf(const abqinp::Keyword& keyword, bool isWoven);

/// What is known about the symmetry that a MATRIX asks for.
[[nodiscard]] lamcraft::Symmetry matrixSymmetry(const abqinp::Keyword& keyword);

/// The words that a parameter may have, for those that the program compares with words of its own.
[[nodiscard]] std::vector<std::string> materialTypes();
[[nodiscard]] std::vector<std::string> materialSystems();
[[nodiscard]] std::vector<std::string> moistures();
[[nodiscard]] std::vector<std::string> laws();

/// The labels of the properties that a set of this symmetry takes from its data line, in order.
[[nodiscard]] std::vector<lamcraft::Property> givenProperties(lamcraft::Symmetry symmetry);

}  // namespace lamkit

#endif
