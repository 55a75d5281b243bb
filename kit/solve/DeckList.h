// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_SOLVE_DECKLIST_H
#define LAMKIT_SOLVE_DECKLIST_H

#include <cstddef>
#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lamkit {

/// A deck and the name of its folder: the file's name without its ending.
struct DeckJob {
  std::string deck;
  std::string name;
};

/// The share of the decks that one of several runs takes: every `count`-th, from number `index` on,
/// which is counted from 1.
struct Chunk {
  std::size_t index = 1;
  std::size_t count = 1;
};

/// The chunk in a text such as "3/8"; nothing unless it is I/N with I from 1 to N.
[[nodiscard]] std::optional<Chunk> chunkFrom(std::string_view text);

/// The decks with their names. Throws Failure for two decks of one name, and for a name that gives
/// no folder of its own: an empty one, or one that starts with a dot, as those of unfinished
/// folders do.
[[nodiscard]] std::vector<DeckJob> jobsOf(const std::vector<std::string>& decks);

/// The decks of a chunk, in their order.
[[nodiscard]] std::vector<DeckJob> shareOf(const std::vector<DeckJob>& jobs, const Chunk& chunk);

/// One deck a line; empty lines are passed over, and so is the carriage return at the end of one.
[[nodiscard]] std::vector<std::string> readDeckList(std::istream& in);

}  // namespace lamkit

#endif
