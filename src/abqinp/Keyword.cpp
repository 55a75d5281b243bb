#include "abqinp/Keyword.h"

#include <algorithm>
#include <ostream>
#include <sstream>
#include <stdexcept>

#include "abqinp/Number.h"

namespace abqinp {

Keyword Keyword::fromComment(const std::string_view text) {
  Keyword keyword;
  keyword.comment_ = text;
  return keyword;
}

Keyword Keyword::fromLine(const std::string_view line, DataLines data) {
  Keyword keyword;
  keyword.name_ = nameOf(line);
  keyword.parameters_.addLine(line.substr(std::min(keyword.name_.size() + 2, line.size())));
  keyword.data_ = std::move(data);
  return keyword;
}

std::string_view Keyword::nameOf(const std::string_view line) {
  return line.substr(1, std::min(line.find(','), line.size()) - 1);
}

bool Keyword::hasParameter(const std::string_view name) const {
  return parameters_.find(name) != nullptr;
}

Parameter Keyword::parameter(const std::string_view name) const {
  const std::string* const value = parameters_.find(name);
  if (value == nullptr) {
    throw std::out_of_range(name_ + " does not have a parameter named " + std::string(name));
  }
  return {std::string(name), *value};
}

std::string Keyword::unquotedValue(const Parameter& parameter) {
  const std::string& value = parameter.second;
  const std::size_t open = value.find('"');
  if (open == std::string::npos) {
    return value;
  }
  const std::size_t close = std::min(value.find('"', open + 1), value.size());
  return value.substr(open + 1, close - open - 1);
}

std::string Keyword::parameterText(const std::string_view name) const {
  return unquotedValue(parameter(name));
}

double Keyword::parameterNumber(const std::string_view name) const {
  return toDouble(parameterText(name));
}

bool Keyword::hasValue(const std::size_t line, const std::size_t column) const {
  return row(line).value(column).has_value();
}

std::int32_t Keyword::intValue(const std::size_t line,
                               const std::size_t column,
                               const std::int32_t defaultValue) const {
  return row(line).intValue(column, defaultValue);
}

double Keyword::doubleValue(const std::size_t line,
                            const std::size_t column,
                            const double defaultValue) const {
  return row(line).doubleValue(column, defaultValue);
}

void Keyword::requireValue(const std::size_t line, const std::size_t column) const {
  if (line >= lineCount()) {
    throw std::out_of_range("Requested line does not exist");
  }
  if (!hasValue(line, column)) {
    throw std::out_of_range("Requested value does not exist");
  }
}

double Keyword::requiredValue(const std::size_t line, const std::size_t column) const {
  requireValue(line, column);
  return doubleValue(line, column, 0.0);
}

std::string Keyword::toText(const bool inWrittenOrder) const {
  std::ostringstream text;
  write(text, inWrittenOrder);
  return text.str();
}

void Keyword::write(std::ostream& out, const bool inWrittenOrder) const {
  if (isComment()) {
    out << comment_ << '\n';
    return;
  }
  out << '*' << name_;
  parameters_.write(out, inWrittenOrder);
  out << '\n';
  data_.write(out);
}

}  // namespace abqinp
