#include "abqinp/DataRow.h"

#include "abqinp/Number.h"

namespace abqinp {

std::optional<std::string_view> DataRow::value(const std::size_t column) {
  if (line_.empty()) {
    return std::nullopt;
  }
  if (column < column_) {
    rest_ = line_;
    column_ = 0;
  }
  for (; column_ < column; ++column_) {
    const std::size_t comma = rest_.find(',');
    if (comma == std::string_view::npos) {
      return std::nullopt;
    }
    rest_.remove_prefix(comma + 1);
  }
  return rest_.substr(0, rest_.find(','));
}

double DataRow::doubleValue(const std::size_t column, const double defaultValue) {
  const std::string_view text = value(column).value_or(std::string_view());
  return text.empty() ? defaultValue : toDouble(text);
}

std::int32_t DataRow::intValue(const std::size_t column, const std::int32_t defaultValue) {
  const std::string_view text = value(column).value_or(std::string_view());
  return text.empty() ? defaultValue : toInt(text);
}

}  // namespace abqinp
