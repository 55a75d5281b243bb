#ifndef LAMCRAFT_ABQINP_DECKPARSER_H
#define LAMCRAFT_ABQINP_DECKPARSER_H

#include <cstddef>
#include <string>
#include <string_view>

#include "abqinp/DeckBlocks.h"

namespace abqinp {

/// Sorts the lines of a deck into blocks: comments, keyword lines, the lines that continue them,
/// and data lines. Time is linear in the deck's size, wherever its comments stand.
class DeckParser {
 public:
  /// Prepares for that many bytes: a hint, see DeckBlocks::expect().
  void expect(const std::size_t bytes) noexcept { blocks_.expect(bytes); }
  /// Takes the next line, as it stands in the deck but for its line feed.
  void addLine(std::string_view line);
  /// The blocks of all lines. Nothing can be added after it.
  DeckBlocks finish();

 private:
  void addNormalised();

  DeckBlocks blocks_;
  bool isContinued_ = false;  // the last keyword line or continuation ended with a comma
  std::string normalised_;    // the line at hand
};

}  // namespace abqinp

#endif
