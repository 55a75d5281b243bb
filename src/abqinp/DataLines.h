#ifndef LAMCRAFT_ABQINP_DATALINES_H
#define LAMCRAFT_ABQINP_DATALINES_H

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "abqinp/DataRow.h"

namespace abqinp {

/// The data lines of one keyword, kept as one text. Memory: the text of the lines, if it is not
/// shared, and one byte more for each line.
class DataLines {
 public:
  DataLines() = default;
  /// The lines in [begin, end) of a text, each of which ends with a line feed. They are not copied,
  /// the text lives on.
  DataLines(std::shared_ptr<const std::string> text, std::size_t begin, std::size_t end);

  /// Appends a normalized line; it must not hold a line feed. Lines of a shared text are copied.
  void add(std::string_view line);

  [[nodiscard]] std::size_t count() const noexcept { return count_; }
  /// The line's text. Raises std::out_of_range ("Requested line does not exist").
  [[nodiscard]] std::string_view line(std::size_t index) const;
  /// The values of a line; none when there is no such line.
  [[nodiscard]] DataRow row(std::size_t index) const;

  /// Writes every line, its values joined by ", ", and a line feed after each.
  void write(std::ostream& out) const;

 private:
  [[nodiscard]] std::string_view text() const noexcept;
  void noteLine(std::size_t start);

  std::shared_ptr<const std::string> shared_;  // null when the text is own_
  std::size_t begin_ = 0;                      // of the lines in the shared text
  std::size_t end_ = 0;
  std::string own_;
  std::vector<std::size_t> starts_;  // where every eighth line starts in text()
  std::size_t count_ = 0;
};

}  // namespace abqinp

#endif
