#include "abqinp/DataLines.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <stdexcept>
#include <utility>

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

DataLines::DataLines(std::shared_ptr<const std::string> text,
                     const std::size_t begin,
                     const std::size_t end)
    : shared_(std::move(text)), begin_(begin), end_(end) {
  const std::string_view lines = this->text();
  for (std::size_t start = 0; start < lines.size(); start = lines.find('\n', start) + 1) {
    noteLine(start);
  }
}

void DataLines::add(const std::string_view line) {
  if (shared_ != nullptr) {
    own_ = text();
    shared_.reset();
  }
  noteLine(own_.size());
  own_.append(line);
  own_.push_back('\n');
}

std::string_view DataLines::text() const noexcept {
  return shared_ == nullptr ? std::string_view(own_)
                            : std::string_view(*shared_).substr(begin_, end_ - begin_);
}

void DataLines::noteLine(const std::size_t start) {
  if (count_ % kLinesPerStart == 0) {
    starts_.push_back(start);
  }
  ++count_;
}

std::string_view DataLines::line(const std::size_t index) const {
  if (index >= count_) {
    throw std::out_of_range("Requested line does not exist");
  }
  const std::string_view text = this->text();
  std::size_t start = starts_[index / kLinesPerStart];
  for (std::size_t skip = index % kLinesPerStart; skip > 0; --skip) {
    start = text.find('\n', start) + 1;
  }
  return text.substr(start, text.find('\n', start) - start);
}

DataRow DataLines::row(const std::size_t index) const {
  return index < count_ ? DataRow(line(index)) : DataRow();
}

void DataLines::write(std::ostream& out) const {
  constexpr std::size_t kPiece = 32768;
  std::array<char, 2 * kPiece> buffer;  // NOLINT(cppcoreguidelines-pro-type-member-init)
  const std::string_view text = this->text();
  for (std::size_t at = 0; at < text.size(); at += kPiece) {
    const char* const end = copyWithBlanks(text.substr(at, kPiece), buffer.data());
    out.write(buffer.data(), end - buffer.data());
  }
}

}  // namespace abqinp
