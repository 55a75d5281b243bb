// SPDX-License-Identifier: BSD-3-Clause
#include "abqinp/DeckParser.h"

#include <algorithm>
#include <utility>

#include "abqinp/DeckLine.h"

namespace abqinp {
namespace {

bool endsWithComma(const std::string_view line) {
  const std::vector<Value> values = valuesOf(line);
  return values.size() > 1 && values.back().text.empty();
}

}  // namespace

void DeckParser::addLine(const std::string_view line) {
  ++lines_;
  if (isCommentLine(line)) {
    blocks_.push_back(Keyword::fromComment(withoutCarriageReturn(line), lines_));
  } else if (isKeywordLine(line)) {
    addKeyword(line);
  } else {
    continueKeyword(line);
  }
}

void DeckParser::addKeyword(const std::string_view line) {
  isContinued_ = endsWithComma(line);
  Keyword keyword = Keyword::fromLine(line, lines_);
  // A keyword without a name is none: what follows it still belongs to the keyword before.
  if (!keyword.name().empty()) {
    lastKeyword_ = blocks_.size();
    blocks_.push_back(std::move(keyword));
  }
}

void DeckParser::continueKeyword(const std::string_view line) {
  const bool isParameterLine = std::exchange(isContinued_, isContinued_ && endsWithComma(line));
  if (lastKeyword_ == kNone) {
    return;
  }
  const auto keyword = blocks_.begin() + static_cast<std::ptrdiff_t>(lastKeyword_);
  std::rotate(keyword, keyword + 1, blocks_.end());
  lastKeyword_ = blocks_.size() - 1;
  if (isParameterLine) {
    blocks_.back().addParameters(line, lines_);
  } else {
    blocks_.back().addDataLine(line, lines_);
  }
}

std::vector<Keyword> DeckParser::finish() {
  for (Keyword& block : blocks_) {
    block.dropTrailingBlankLines();
  }
  return std::move(blocks_);
}

}  // namespace abqinp
