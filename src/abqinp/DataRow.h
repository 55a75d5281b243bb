#ifndef LAMCRAFT_ABQINP_DATAROW_H
#define LAMCRAFT_ABQINP_DATAROW_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace abqinp {

/// One data line, cut into its values on access: what stands between its commas, so that "1,2," has
/// three and the blank line none. The text lives elsewhere. Columns count from 0; one that stands
/// behind the last that was asked for is found from there.
class DataRow {
 public:
  /// A line that is blank, or does not exist.
  DataRow() = default;
  explicit DataRow(const std::string_view line) noexcept : line_(line), rest_(line) {}

  /// The value at a column; none when the line has no such column.
  [[nodiscard]] std::optional<std::string_view> value(std::size_t column);

  /// The number at a column; the default when there is none or its value is empty. Raises
  /// std::invalid_argument with the value's text when it cannot be read.
  [[nodiscard]] double doubleValue(std::size_t column, double defaultValue);
  [[nodiscard]] std::int32_t intValue(std::size_t column, std::int32_t defaultValue);

 private:
  std::string_view line_;
  std::string_view rest_;   // from column_ on
  std::size_t column_ = 0;  // that was asked for last
};

}  // namespace abqinp

#endif
