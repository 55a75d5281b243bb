#ifndef LAMCRAFT_ABQINP_INPUTFILEEXCEPTION_H
#define LAMCRAFT_ABQINP_INPUTFILEEXCEPTION_H

#include <exception>
#include <stdexcept>
#include <string>

namespace abqinp {

/// A deck whose content is wrong: a keyword that is unknown, out of place or without its parent.
/// The reader never raises it; whoever gives the keywords their meaning does.
class InputFileException : public std::exception {
 public:
  /// "Invalid keyword: " name
  static InputFileException invalidKeyword(const std::string& name);
  /// "Misplaced keyword: " name
  static InputFileException misplacedKeyword(const std::string& name);
  /// "Keyword, " name ", missing parent keyword: " parent
  static InputFileException missingParent(const std::string& name, const std::string& parent);

  [[nodiscard]] const char* what() const noexcept override { return message_.what(); }

 private:
  // NOLINTNEXTLINE(bugprone-throw-keyword-missing): a member that is an exception
  explicit InputFileException(const std::string& message) : message_(message) {}

  std::runtime_error message_;  // keeps a text that copies without throwing
};

}  // namespace abqinp

#endif
