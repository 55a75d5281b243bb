// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_ABQINP_KEYWORD_H
#define LAMCRAFT_ABQINP_KEYWORD_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "abqinp/DataRow.h"

namespace abqinp {

/// The name of a parameter and its value; the value is empty when the deck gives none.
using Parameter = std::pair<std::string, std::string>;

/// A place in the deck's file, for messages: a line and a byte of it, both counted from 1. Blocks
/// that no file gave have 0.
struct Place {
  std::size_t line = 0;
  std::size_t column = 0;
};

/// One block of a deck: a keyword with its parameters and data lines, or a comment line.
///
/// A plain value. Names and values are upper case and without white space, but for what the deck
/// writes in double quotes; parameter names are compared byte by byte. Data lines and their columns
/// count from 0, the lines of the file from 1. A number that cannot be read raises
/// std::invalid_argument with the value's text.
///
/// What is wrong with a deck, and where:
///
///     for (const abqinp::Keyword& keyword : deck.keywords()) {
///       if (keyword.name() == "FVF" && keyword.doubleValue(0, 0, 0.0) >= 1.0) {
///         const abqinp::Place place = keyword.valuePlace(0, 0);
///         std::cout << place.line << ':' << place.column << ": too large\n";
///       }
///     }
class Keyword {
 public:
  /// A block without a name: no keyword yet.
  Keyword() = default;
  /// The block of a comment line, kept as it is; `number` is the line's in the deck.
  static Keyword fromComment(std::string_view line, std::size_t number = 0);
  /// The block of a keyword line, "*NAME" and its parameters.
  static Keyword fromLine(std::string_view line, std::size_t number = 0);

  /// Adds the parameters of a line that continues the keyword line. Of two values for one name the
  /// left one of the line stays, but those of earlier lines go.
  void addParameters(std::string_view line, std::size_t number = 0);
  /// Adds a data line, as the deck has it.
  void addDataLine(std::string_view line, std::size_t number = 0);
  /// Removes the blank lines that end the data.
  void dropTrailingBlankLines();

  /// The name without the leading "*"; empty for a comment.
  [[nodiscard]] const std::string& name() const noexcept { return name_; }
  [[nodiscard]] bool isComment() const noexcept { return !comment_.empty(); }
  /// The comment line as it was read; empty for a keyword.
  [[nodiscard]] const std::string& comment() const noexcept { return comment_; }

  /// The line of the keyword, or of the comment, in the deck.
  [[nodiscard]] std::size_t line() const noexcept { return line_; }

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
  /// The names in the order in which they were written; one that was written twice stands twice.
  [[nodiscard]] const std::vector<std::string>& parameterNames() const noexcept {
    return parameterOrder_;
  }
  /// Where the parameter stands whose value counts. Raises as parameter() does.
  [[nodiscard]] Place parameterPlace(std::string_view name) const;

  [[nodiscard]] std::size_t lineCount() const noexcept { return dataLines_.size(); }
  /// The number of a data line in the deck. Raises std::out_of_range ("Requested line does not
  /// exist").
  [[nodiscard]] std::size_t dataLineNumber(std::size_t line) const;
  /// A line's values, none when there is no such line: for who wants several of them.
  [[nodiscard]] DataRow row(std::size_t line) const;
  /// Whether the position exists; a position may hold an empty value.
  [[nodiscard]] bool hasValue(std::size_t line, std::size_t column) const;
  /// Where a value stands; raises as requireValue() does.
  [[nodiscard]] Place valuePlace(std::size_t line, std::size_t column) const;
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

 private:
  struct ParameterValue {
    std::string text;
    Place place;
  };
  struct DataLine {
    std::string text;  // as the deck has it; empty when it is blank
    std::size_t number;
  };

  void addParameters(const std::vector<Value>& values, std::size_t first, std::size_t number);
  [[nodiscard]] const ParameterValue& parameterValue(std::string_view name) const;

  std::string name_;
  std::string comment_;
  std::map<std::string, ParameterValue, std::less<>> parameters_;
  std::vector<std::string> parameterOrder_;  // a name that was written twice stands here twice
  std::vector<DataLine> dataLines_;
  std::size_t line_ = 0;
};

}  // namespace abqinp

#endif
