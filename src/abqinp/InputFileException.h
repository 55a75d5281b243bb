// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_ABQINP_INPUTFILEEXCEPTION_H
#define LAMCRAFT_ABQINP_INPUTFILEEXCEPTION_H

#include <stdexcept>
#include <string>

namespace abqinp {

/// A deck whose content is wrong: a keyword that is unknown, out of place or without its parent.
/// The reader never raises it; whoever gives the keywords their meaning does.
class InputFileException : public std::runtime_error {
 public:
  /// "Invalid keyword: " name
  static InputFileException invalidKeyword(const std::string& name);
  /// "Misplaced keyword: " name
  static InputFileException misplacedKeyword(const std::string& name);
  /// "Keyword, " name ", missing parent keyword: " parent
  static InputFileException missingParent(const std::string& name, const std::string& parent);

 private:
  explicit InputFileException(const std::string& message) : std::runtime_error(message) {}
};

}  // namespace abqinp

#endif
