// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_ABQINP_DECKPARSER_H
#define LAMCRAFT_ABQINP_DECKPARSER_H

#include <cstddef>
#include <string_view>
#include <vector>

#include "abqinp/Keyword.h"

namespace abqinp {

/// Sorts the lines of a deck into blocks: comments, keyword lines, the lines that continue them,
/// and data lines. A keyword that goes on behind comments is stored behind them.
class DeckParser {
 public:
  /// Takes the next line, as it stands in the deck but for its line feed.
  void addLine(std::string_view line);
  /// The blocks of all lines. Nothing can be added after it.
  std::vector<Keyword> finish();

 private:
  void addKeyword(std::string_view line);
  void continueKeyword(std::string_view line);

  std::vector<Keyword> blocks_;
  std::size_t lines_ = 0;            // so far
  std::size_t lastKeyword_ = kNone;  // its index
  bool isContinued_ = false;         // the last keyword line or continuation ended with a comma
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
};

}  // namespace abqinp

#endif
