// SPDX-License-Identifier: BSD-3-Clause
#include "abqinp/DeckLine.h"

#include <algorithm>

namespace abqinp {
namespace {

constexpr char upper(const char c) noexcept {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

constexpr bool isWhite(const char c) noexcept {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

/// Cuts the first value, and the comma behind it, off a line; `end` is the line's length.
Value takeValue(std::string_view& line, const std::size_t end, bool& isQuoted) {
  const std::size_t length = std::min(line.find(','), line.size());
  const std::size_t start = end - line.size();
  Value value{{}, start + length + 1};
  for (std::size_t i = 0; i < length; ++i) {
    const char c = line[i];
    if (isQuoted || !isWhite(c)) {
      value.column = std::min(value.column, start + i + 1);
      value.text.push_back(isQuoted ? c : upper(c));
    }
    isQuoted = isQuoted != (c == '"');
  }
  line.remove_prefix(std::min(length + 1, line.size()));
  return value;
}

}  // namespace

std::vector<Value> valuesOf(const std::string_view line) {
  std::string_view left = withoutCarriageReturn(line);
  std::vector<Value> values(1 +
                            static_cast<std::size_t>(std::count(left.begin(), left.end(), ',')));
  const std::size_t end = left.size();
  bool isQuoted = false;
  for (Value& value : values) {
    value = takeValue(left, end, isQuoted);
  }
  if (values.size() == 1 && values.front().text.empty()) {
    values.clear();
  }
  return values;
}

bool isCommentLine(const std::string_view line) noexcept {
  const std::size_t star = line.find('*');
  return star != std::string_view::npos && line.substr(star, 2) == "**";
}

bool isBlankLine(const std::string_view line) noexcept {
  return std::all_of(line.begin(), line.end(), isWhite);
}

bool isKeywordLine(const std::string_view line) noexcept {
  const auto* const first = std::find_if_not(line.begin(), line.end(), isWhite);
  return first != line.end() && *first == '*';
}

std::string_view withoutCarriageReturn(const std::string_view line) noexcept {
  const bool hasReturn = !line.empty() && line.back() == '\r';
  return line.substr(0, line.size() - (hasReturn ? 1 : 0));
}

}  // namespace abqinp
