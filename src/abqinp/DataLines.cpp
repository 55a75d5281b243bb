#include "abqinp/DataLines.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <stdexcept>

namespace abqinp {
namespace {

constexpr std::size_t kLinesPerStart = 8;

/// Copies `text` to `out` with a blank after every comma; `out` has room for two per character.
char* copyWithBlanks(const std::string_view text, char* out) noexcept {
  for (const char c : text) {
    out[0] = c;
    out[1] = ' ';
    out += c == ',' ? 2 : 1;
  }
  return out;
}

}  // namespace

void DataLines::add(const std::string_view line) {
  if (count_ % kLinesPerStart == 0) {
    starts_.push_back(text_.size());
  }
  text_.append(line);
  text_.push_back('\n');
  ++count_;
}

void DataLines::dropTrailingBlankLines() {
  while (count_ > 0 && (text_.size() == 1 || text_[text_.size() - 2] == '\n')) {
    text_.pop_back();
    --count_;
  }
  starts_.resize((count_ + kLinesPerStart - 1) / kLinesPerStart);
}

std::string_view DataLines::line(const std::size_t index) const {
  if (index >= count_) {
    throw std::out_of_range("Requested line does not exist");
  }
  std::size_t start = starts_[index / kLinesPerStart];
  for (std::size_t skip = index % kLinesPerStart; skip > 0; --skip) {
    start = text_.find('\n', start) + 1;
  }
  return std::string_view(text_).substr(start, text_.find('\n', start) - start);
}

std::optional<std::string_view> DataLines::value(const std::size_t line,
                                                 const std::size_t column) const {
  if (line >= count_) {
    return std::nullopt;
  }
  std::string_view rest = this->line(line);
  if (rest.empty()) {
    return std::nullopt;
  }
  for (std::size_t skip = column; skip > 0; --skip) {
    const std::size_t comma = rest.find(',');
    if (comma == std::string_view::npos) {
      return std::nullopt;
    }
    rest.remove_prefix(comma + 1);
  }
  return rest.substr(0, rest.find(','));
}

void DataLines::write(std::ostream& out) const {
  constexpr std::size_t kPiece = 32768;
  std::array<char, 2 * kPiece> buffer;  // NOLINT(cppcoreguidelines-pro-type-member-init)
  const std::string_view text = text_;
  for (std::size_t at = 0; at < text.size(); at += kPiece) {
    const char* const end = copyWithBlanks(text.substr(at, kPiece), buffer.data());
    out.write(buffer.data(), end - buffer.data());
  }
}

}  // namespace abqinp
