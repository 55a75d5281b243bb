#include "abqinp/DeckParser.h"

#include <utility>

#include "abqinp/Normalisation.h"

namespace abqinp {

void DeckParser::addLine(const std::string_view line) {
  if (isCommentLine(line)) {
    blocks_.addComment(withoutCarriageReturn(line));
    return;
  }
  normalise(line, normalised_);
  addNormalised();
}

void DeckParser::addNormalised() {
  const bool isKeyword = !normalised_.empty() && normalised_.front() == '*';
  if (!isKeyword && !isContinued_) {
    blocks_.addDataLine(normalised_);
    return;
  }
  isContinued_ = !normalised_.empty() && normalised_.back() == ',';
  if (!isKeyword) {
    blocks_.addParameterLine(normalised_);
  } else if (!Keyword::nameOf(normalised_).empty()) {
    // A keyword without a name is none: what follows it still belongs to the keyword before.
    blocks_.addKeyword(normalised_);
  }
}

DeckBlocks DeckParser::finish() {
  blocks_.dropTrailingBlankLines();
  return std::move(blocks_);
}

}  // namespace abqinp
