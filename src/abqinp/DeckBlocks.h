#ifndef LAMCRAFT_ABQINP_DECKBLOCKS_H
#define LAMCRAFT_ABQINP_DECKBLOCKS_H

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "abqinp/Keyword.h"

namespace abqinp {

/// The blocks of a deck in stored order: keywords, and the comments between them.
///
/// Comments keep the order in which they are added, so that they are one text, and each keyword
/// knows how much of it stands before it. A walk makes a comment's block when it reaches it.
class DeckBlocks {
 public:
  void addComment(std::string_view text);
  void addKeyword(Keyword&& keyword);
  /// Takes the last keyword out again, whatever comments stand behind it; none without keywords.
  std::optional<Keyword> takeLastKeyword();
  /// Removes the blank lines that end the keywords' data.
  void dropTrailingBlankLines();

  /// The number of blocks, comments included.
  [[nodiscard]] std::size_t count() const noexcept { return comments_ + keywords_.size(); }
  /// The number of blocks of that name; comments have the empty name.
  [[nodiscard]] std::size_t count(std::string_view name) const;

  /// Writes every block as Keyword::toText() gives it.
  void write(std::ostream& out, bool inWrittenOrder) const;

  /// Where a walk over the blocks stands: how many of each sort it has passed.
  struct Place {
    std::size_t keywords = 0;
    std::size_t comments = 0;
    std::size_t commentText = 0;
  };
  /// The block behind `place`, which moves behind it; null at the end. A comment's block is built
  /// in `comment`.
  const Keyword* next(Place& place, Keyword& comment) const;

 private:
  struct StoredKeyword {
    Keyword keyword;
    std::size_t commentsBefore;
    std::size_t commentTextBefore;
  };

  std::vector<StoredKeyword> keywords_;
  std::string commentText_;  // each comment with a line feed
  std::size_t comments_ = 0;
};

}  // namespace abqinp

#endif
