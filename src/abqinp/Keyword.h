#ifndef LAMCRAFT_ABQINP_KEYWORD_H
#define LAMCRAFT_ABQINP_KEYWORD_H

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>

#include "abqinp/DataLines.h"
#include "abqinp/ParameterList.h"

namespace abqinp {

/// The name of a parameter and its value; the value is empty when the deck gives none.
using Parameter = std::pair<std::string, std::string>;

/// One block of a deck: a keyword with its parameters and data lines, or a comment line.
///
/// A plain value. Names and values are upper case and without white space, but for what the deck
/// writes in double quotes; parameter names are compared byte by byte. Lines and columns count
/// from 0. A number that cannot be read raises std::invalid_argument with the value's text.
class Keyword {
 public:
  /// A block without a name: no keyword yet.
  Keyword() = default;
  /// The block of a comment line, kept as it was read.
  static Keyword fromComment(std::string_view text);
  /// The block of a normalized keyword line, "*NAME" and its parameters.
  static Keyword fromLine(std::string_view line, DataLines data = {});
  /// The name in a normalized keyword line: from behind its "*" to its first comma or its end.
  static std::string_view nameOf(std::string_view line);

  /// Adds the parameters of a normalized line that continues the keyword line.
  void addParameters(std::string_view line) { parameters_.addLine(line); }
  /// Adds a normalized data line; an empty one is a blank line.
  void addDataLine(std::string_view line) { data_.add(line); }

  /// The name without the leading "*"; empty for a comment.
  [[nodiscard]] const std::string& name() const noexcept { return name_; }
  [[nodiscard]] bool isComment() const noexcept { return !comment_.empty(); }
  /// The comment line as it was read; empty for a keyword.
  [[nodiscard]] const std::string& comment() const noexcept { return comment_; }

  [[nodiscard]] bool hasParameter(std::string_view name) const;
  /// Raises std::out_of_range: the keyword's name, " does not have a parameter named ", `name`.
  [[nodiscard]] Parameter parameter(std::string_view name) const;
  /// The value between its first two double quotes (to its end when there is no second one); the
  /// whole value when it has none.
  static std::string unquotedValue(const Parameter& parameter);
  /// unquotedValue(parameter(name))
  [[nodiscard]] std::string parameterText(std::string_view name) const;
  /// The number that parameterText(name) starts with; an empty text is no number.
  [[nodiscard]] double parameterNumber(std::string_view name) const;

  [[nodiscard]] std::size_t lineCount() const noexcept { return data_.count(); }
  /// Whether the position exists; a position may hold an empty value.
  [[nodiscard]] bool hasValue(std::size_t line, std::size_t column) const;
  /// A line's values, for who wants several of them: finding the line takes longer than a number.
  [[nodiscard]] DataRow row(const std::size_t line) const { return data_.row(line); }
  /// The number at a position; the default when there is none or its value is empty.
  [[nodiscard]] std::int32_t intValue(std::size_t line,
                                      std::size_t column,
                                      std::int32_t defaultValue) const;
  [[nodiscard]] double doubleValue(std::size_t line, std::size_t column, double defaultValue) const;
  /// Raises std::out_of_range ("Requested line does not exist", "Requested value does not exist").
  void requireValue(std::size_t line, std::size_t column) const;
  /// The number at a position that must exist; 0 when its value is empty.
  [[nodiscard]] double requiredValue(std::size_t line, std::size_t column) const;

  /// The block as a deck holds it, with a line feed after each line. The parameters come sorted by
  /// name, one for each name, or in the order in which they were written.
  [[nodiscard]] std::string toText(bool inWrittenOrder) const;
  /// Writes toText() without building it.
  void write(std::ostream& out, bool inWrittenOrder) const;

 private:
  std::string name_;
  std::string comment_;
  ParameterList parameters_;
  DataLines data_;
};

}  // namespace abqinp

#endif
