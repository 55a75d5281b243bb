#include "abqinp/DeckParser.h"

#include <optional>
#include <utility>

#include "abqinp/Normalisation.h"

namespace abqinp {

void DeckParser::addLine(const std::string_view line) {
  if (isCommentLine(line)) {
    addComment(line);
    return;
  }
  normalise(line, normalised_);
  if (!normalised_.empty() && normalised_.front() == '*') {
    addKeywordLine();
  } else {
    addFollowingLine();
  }
}

DeckBlocks DeckParser::finish() {
  storeCurrent();
  blocks_.dropTrailingBlankLines();
  return std::move(blocks_);
}

void DeckParser::addComment(const std::string_view line) {
  storeCurrent();
  blocks_.addComment(withoutCarriageReturn(line));
}

void DeckParser::addKeywordLine() {
  storeCurrent();
  current_ = Keyword::fromLine(normalised_);
  isContinued_ = endsWithComma();
}

void DeckParser::addFollowingLine() {
  if (current_.name().empty()) {
    // A comment came in between: the keyword goes on, and is stored after the comment.
    current_ = blocks_.takeLastKeyword().value_or(Keyword());
  }
  const bool hasKeyword = !current_.name().empty();
  if (isContinued_) {
    isContinued_ = endsWithComma();
    if (hasKeyword) {
      current_.addParameters(normalised_);
    }
  } else if (hasKeyword) {
    current_.addDataLine(normalised_);
  }
}

void DeckParser::storeCurrent() {
  if (!current_.name().empty()) {
    blocks_.addKeyword(std::move(current_));
  }
  current_ = Keyword();
}

bool DeckParser::endsWithComma() const noexcept {
  return !normalised_.empty() && normalised_.back() == ',';
}

}  // namespace abqinp
