// SPDX-License-Identifier: BSD-3-Clause
#include "table/TableText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include <nlohmann/json.hpp>

namespace lamkit {

namespace {

void writeField(std::ostream& out, const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) {
    out << text;
    return;
  }
  out << '"';
  for (const char character : text) {
    out << character;
    if (character == '"') {
      out << '"';
    }
  }
  out << '"';
}

void writeField(std::ostream& out, const double number) {
  constexpr std::size_t kLongest = 32;
  std::array<char, kLongest> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
  out.write(text.data(), end - text.data());
}

void writeField(std::ostream& /*out*/, const std::monostate /*nothing*/) {}

nlohmann::ordered_json jsonFrom(const Cell& cell) {
  if (const auto* const text = std::get_if<std::string>(&cell)) {
    return *text;
  }
  if (const auto* const number = std::get_if<double>(&cell)) {
    const auto whole = static_cast<std::int64_t>(std::abs(*number) < 1e15 ? *number : 0.0);
    return static_cast<double>(whole) == *number ? nlohmann::ordered_json(whole)
                                                 : nlohmann::ordered_json(*number);
  }
  return nullptr;
}

}  // namespace

void writeCsvHead(std::ostream& out) {
  const char* separator = "";
  for (const std::string& name : columnNames()) {
    out << separator;
    writeField(out, name);
    separator = ",";
  }
  out << '\n';
}

void writeCsv(std::ostream& out, const std::vector<Cell>& row) {
  const char* separator = "";
  for (const Cell& cell : row) {
    out << separator;
    std::visit([&out](const auto& value) { writeField(out, value); }, cell);
    separator = ",";
  }
  out << '\n';
}

void writeJson(std::ostream& out, const std::vector<Cell>& row) {
  nlohmann::ordered_json object;
  for (std::size_t i = 0; i < row.size(); ++i) {
    object[columnNames()[i]] = jsonFrom(row[i]);
  }
  out << object.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}

}  // namespace lamkit
