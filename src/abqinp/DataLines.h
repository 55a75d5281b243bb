#ifndef LAMCRAFT_ABQINP_DATALINES_H
#define LAMCRAFT_ABQINP_DATALINES_H

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace abqinp {

/// The data lines of one keyword, kept as one text; a line is cut into its values on access.
///
/// The values of a line are what stands between its commas, so "1,2," has three and the blank line
/// none. Memory: the text of the lines and one byte more for each line.
class DataLines {
 public:
  /// Appends a normalized line; it must not hold a line feed.
  void add(std::string_view line);
  /// Removes the lines without values that stand behind the last line with values.
  void dropTrailingBlankLines();

  [[nodiscard]] std::size_t count() const noexcept { return count_; }
  /// The line's text. Raises std::out_of_range ("Requested line does not exist").
  [[nodiscard]] std::string_view line(std::size_t index) const;
  /// The value at (line, column), both from 0; none when the line or the column does not exist.
  [[nodiscard]] std::optional<std::string_view> value(std::size_t line, std::size_t column) const;

  /// Writes every line, its values joined by ", ", and a line feed after each.
  void write(std::ostream& out) const;

 private:
  std::string text_;                 // each line with its line feed
  std::vector<std::size_t> starts_;  // where every eighth line starts in text_
  std::size_t count_ = 0;
};

}  // namespace abqinp

#endif
