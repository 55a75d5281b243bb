// SPDX-License-Identifier: BSD-3-Clause
#include "abqinp/Keyword.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>

#include "abqinp/Number.h"

namespace abqinp {
namespace {

void appendParameter(std::string& text, const std::string& name, const std::string& value) {
  text += ", " + name;
  if (!value.empty()) {
    text += '=' + value;
  }
}

void appendDataLine(std::string& text, const std::vector<Value>& values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    text += i == 0 ? "" : ", ";
    text += values[i].text;
  }
  text += '\n';
}

}  // namespace

Keyword Keyword::fromComment(const std::string_view line, const std::size_t number) {
  Keyword keyword;
  keyword.comment_ = line;
  keyword.line_ = number;
  return keyword;
}

Keyword Keyword::fromLine(const std::string_view line, const std::size_t number) {
  const std::vector<Value> values = valuesOf(line);
  Keyword keyword;
  keyword.name_ = values.front().text.substr(1);
  keyword.line_ = number;
  keyword.addParameters(values, 1, number);
  return keyword;
}

void Keyword::addParameters(const std::string_view line, const std::size_t number) {
  addParameters(valuesOf(line), 0, number);
}

void Keyword::addParameters(const std::vector<Value>& values,
                            const std::size_t first,
                            const std::size_t number) {
  // Behind as many names as there were different ones before, in the order of the line.
  const auto place = static_cast<std::ptrdiff_t>(parameters_.size());
  std::vector<std::string> names;
  for (std::size_t i = values.size(); i > first; --i) {
    const auto& [text, column] = values[i - 1];
    if (text.empty()) {
      continue;
    }
    const std::size_t equals = std::min(text.find('='), text.size());
    const std::string name = text.substr(0, equals);
    parameters_[name] = {text.substr(std::min(equals + 1, text.size())), {number, column}};
    names.push_back(name);
  }
  parameterOrder_.insert(parameterOrder_.begin() + place, names.rbegin(), names.rend());
}

void Keyword::addDataLine(const std::string_view line, const std::size_t number) {
  dataLines_.push_back({std::string(isBlankLine(line) ? std::string_view() : line), number});
}

void Keyword::dropTrailingBlankLines() {
  while (!dataLines_.empty() && dataLines_.back().text.empty()) {
    dataLines_.pop_back();
  }
}

bool Keyword::hasParameter(const std::string_view name) const {
  return parameters_.find(name) != parameters_.end();
}

const Keyword::ParameterValue& Keyword::parameterValue(const std::string_view name) const {
  const auto found = parameters_.find(name);
  if (found == parameters_.end()) {
    throw std::out_of_range(name_ + " does not have a parameter named " + std::string(name));
  }
  return found->second;
}

Parameter Keyword::parameter(const std::string_view name) const {
  return {std::string(name), parameterValue(name).text};
}

Place Keyword::parameterPlace(const std::string_view name) const {
  return parameterValue(name).place;
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

std::size_t Keyword::dataLineNumber(const std::size_t line) const {
  if (line >= lineCount()) {
    throw std::out_of_range("Requested line does not exist");
  }
  return dataLines_[line].number;
}

DataRow Keyword::row(const std::size_t line) const {
  return line < lineCount() ? DataRow(dataLines_[line].text) : DataRow();
}

bool Keyword::hasValue(const std::size_t line, const std::size_t column) const {
  return column < row(line).values().size();
}

Place Keyword::valuePlace(const std::size_t line, const std::size_t column) const {
  requireValue(line, column);
  return {dataLineNumber(line), row(line).values()[column].column};
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
  static_cast<void>(dataLineNumber(line));
  if (!hasValue(line, column)) {
    throw std::out_of_range("Requested value does not exist");
  }
}

double Keyword::requiredValue(const std::size_t line, const std::size_t column) const {
  requireValue(line, column);
  return doubleValue(line, column, 0.0);
}

std::string Keyword::toText(const bool inWrittenOrder) const {
  if (isComment()) {
    return comment_ + '\n';
  }
  std::string text = '*' + name_;
  if (inWrittenOrder) {
    for (const std::string& name : parameterOrder_) {
      appendParameter(text, name, parameterValue(name).text);
    }
  } else {
    for (const auto& [name, value] : parameters_) {
      appendParameter(text, name, value.text);
    }
  }
  text += '\n';
  for (std::size_t line = 0; line < lineCount(); ++line) {
    appendDataLine(text, row(line).values());
  }
  return text;
}

}  // namespace abqinp
