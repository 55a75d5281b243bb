#include "abqinp/DeckBlocks.h"

#include <exception>
#include <ostream>

namespace abqinp {
namespace {

void appendLine(std::string& text, const std::string_view line) {
  text.append(line);
  text.push_back('\n');
}

/// Cuts the first line off `lines`.
std::string_view takeLine(std::string_view& lines) noexcept {
  const std::string_view line = lines.substr(0, lines.find('\n'));
  lines.remove_prefix(line.size() + 1);
  return line;
}

}  // namespace

void DeckBlocks::expect(const std::size_t bytes) noexcept {
  try {
    keywordText_.reserve(bytes);
    commentText_.reserve(bytes);
    dataText_->reserve(bytes);
  } catch (const std::exception&) {
    // Texts that grow as they are filled may still find room.
  }
}

void DeckBlocks::addComment(const std::string_view text) {
  appendLine(commentText_, text);
  ++comments_;
}

void DeckBlocks::addKeyword(const std::string_view line) {
  dropTrailingBlankLines();
  keywords_.push_back({keywordText_.size(), dataText_->size(), commentText_.size()});
  appendLine(keywordText_, line);
}

void DeckBlocks::addParameterLine(const std::string_view line) {
  if (moveLastBehindComments()) {
    appendLine(keywordText_, line);
  }
}

void DeckBlocks::addDataLine(const std::string_view line) {
  if (moveLastBehindComments()) {
    appendLine(*dataText_, line);
  }
}

bool DeckBlocks::moveLastBehindComments() noexcept {
  if (keywords_.empty()) {
    return false;
  }
  keywords_.back().commentText = commentText_.size();
  return true;
}

void DeckBlocks::dropTrailingBlankLines() {
  const std::size_t start = keywords_.empty() ? 0 : keywords_.back().dataText;
  std::size_t end = dataText_->size();
  while (end > start && (end - start == 1 || (*dataText_)[end - 2] == '\n')) {
    --end;
  }
  dataText_->resize(end);
}

std::size_t DeckBlocks::count(const std::string_view name) const {
  if (name.empty()) {
    return comments_;
  }
  std::size_t found = 0;
  for (std::size_t i = 0; i < keywords_.size(); ++i) {
    std::string_view lines = keywordLines(i);
    found += Keyword::nameOf(takeLine(lines)) == name ? 1 : 0;
  }
  return found;
}

std::string_view DeckBlocks::keywordLines(const std::size_t index) const {
  const std::size_t start = keywords_[index].keywordText;
  const bool isLast = index + 1 == keywords_.size();
  const std::size_t end = isLast ? keywordText_.size() : keywords_[index + 1].keywordText;
  return std::string_view(keywordText_).substr(start, end - start);
}

Keyword DeckBlocks::keyword(const std::size_t index) const {
  const bool isLast = index + 1 == keywords_.size();
  const std::size_t dataEnd = isLast ? dataText_->size() : keywords_[index + 1].dataText;
  std::string_view lines = keywordLines(index);
  Keyword keyword =
      Keyword::fromLine(takeLine(lines), DataLines(dataText_, keywords_[index].dataText, dataEnd));
  while (!lines.empty()) {
    keyword.addParameters(takeLine(lines));
  }
  return keyword;
}

void DeckBlocks::write(std::ostream& out, const bool inWrittenOrder) const {
  std::size_t written = 0;
  const auto writeCommentsTo = [&](const std::size_t end) {
    out.write(commentText_.data() + written, static_cast<std::streamsize>(end - written));
    written = end;
  };
  for (std::size_t i = 0; i < keywords_.size(); ++i) {
    writeCommentsTo(keywords_[i].commentText);
    keyword(i).write(out, inWrittenOrder);
  }
  writeCommentsTo(commentText_.size());
}

bool DeckBlocks::next(Place& place, Keyword& block) const {
  const bool hasKeyword = place.keywords < keywords_.size();
  if (hasKeyword && keywords_[place.keywords].commentText == place.commentText) {
    block = keyword(place.keywords++);
    return true;
  }
  if (place.comments == comments_) {
    return false;
  }
  std::string_view rest = std::string_view(commentText_).substr(place.commentText);
  const std::string_view text = takeLine(rest);
  block = Keyword::fromComment(text);
  place.commentText += text.size() + 1;
  ++place.comments;
  return true;
}

}  // namespace abqinp
