#ifndef LAMCRAFT_ABQINP_DECKBLOCKS_H
#define LAMCRAFT_ABQINP_DECKBLOCKS_H

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "abqinp/Keyword.h"

namespace abqinp {

/// The blocks of a deck in stored order: keywords, and the comments between them.
///
/// A deck is kept as three texts, of its keyword lines, its data lines and its comments. Only the
/// last keyword can grow, so that everything is added at an end, and a keyword that goes on behind
/// a comment needs no more than a new place among the comments. A walk makes each block when it
/// reaches it. Memory: the normalized deck and 24 bytes for each keyword.
class DeckBlocks {
 public:
  /// Prepares for a deck of that many bytes: what is added up to there moves nothing that is there
  /// already. A hint, which costs no memory until there is text, and which may fail silently.
  void expect(std::size_t bytes) noexcept;

  void addComment(std::string_view text);
  /// Adds the keyword of a normalized line, whose name must not be empty. The blank lines that end
  /// the data of the keyword before it go.
  void addKeyword(std::string_view line);
  /// Adds a normalized line to the last keyword, and moves that keyword behind all comments that
  /// there are; does nothing when there is no keyword.
  void addParameterLine(std::string_view line);
  void addDataLine(std::string_view line);
  /// Removes the blank lines that end the last keyword's data.
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
  /// Makes the block behind `place`, which moves behind it; false at the end. A keyword shares its
  /// data with the deck.
  bool next(Place& place, Keyword& block) const;

 private:
  /// Where a keyword's lines start in their texts, and where the comments before it end in theirs.
  struct Start {
    std::size_t keywordText;
    std::size_t dataText;
    std::size_t commentText;
  };
  bool moveLastBehindComments() noexcept;
  [[nodiscard]] std::string_view keywordLines(std::size_t index) const;
  [[nodiscard]] Keyword keyword(std::size_t index) const;

  std::vector<Start> keywords_;
  std::size_t comments_ = 0;
  // Each line with its line feed.
  std::string keywordText_;
  std::string commentText_;
  std::shared_ptr<std::string> dataText_ = std::make_shared<std::string>();
};

}  // namespace abqinp

#endif
