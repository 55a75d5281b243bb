#include "abqinp/DeckBlocks.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace abqinp {

void DeckBlocks::addComment(const std::string_view text) {
  commentText_.append(text);
  commentText_.push_back('\n');
  ++comments_;
}

void DeckBlocks::addKeyword(Keyword&& keyword) {
  keywords_.push_back({std::move(keyword), comments_, commentText_.size()});
}

std::optional<Keyword> DeckBlocks::takeLastKeyword() {
  if (keywords_.empty()) {
    return std::nullopt;
  }
  std::optional<Keyword> keyword(std::move(keywords_.back().keyword));
  keywords_.pop_back();
  return keyword;
}

void DeckBlocks::dropTrailingBlankLines() {
  for (StoredKeyword& stored : keywords_) {
    stored.keyword.dropTrailingBlankLines();
  }
}

std::size_t DeckBlocks::count(const std::string_view name) const {
  if (name.empty()) {
    return comments_;
  }
  const auto found =
      std::count_if(keywords_.begin(), keywords_.end(), [name](const StoredKeyword& stored) {
        return stored.keyword.name() == name;
      });
  return static_cast<std::size_t>(found);
}

void DeckBlocks::write(std::ostream& out, const bool inWrittenOrder) const {
  std::size_t written = 0;
  const auto writeCommentsTo = [&](const std::size_t end) {
    out.write(commentText_.data() + written, static_cast<std::streamsize>(end - written));
    written = end;
  };
  for (const StoredKeyword& stored : keywords_) {
    writeCommentsTo(stored.commentTextBefore);
    stored.keyword.write(out, inWrittenOrder);
  }
  writeCommentsTo(commentText_.size());
}

const Keyword* DeckBlocks::next(Place& place, Keyword& comment) const {
  const bool hasKeyword = place.keywords < keywords_.size();
  if (hasKeyword && keywords_[place.keywords].commentsBefore == place.comments) {
    return &keywords_[place.keywords++].keyword;
  }
  if (place.comments == comments_) {
    return nullptr;
  }
  const std::size_t end = commentText_.find('\n', place.commentText);
  comment = Keyword::fromComment(
      std::string_view(commentText_).substr(place.commentText, end - place.commentText));
  place.commentText = end + 1;
  ++place.comments;
  return &comment;
}

}  // namespace abqinp
