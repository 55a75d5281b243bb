// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_SOLVE_DECKRUN_H
#define LAMKIT_SOLVE_DECKRUN_H

#include <chrono>
#include <filesystem>
#include <optional>

#include "record/RunRecord.h"
#include "solve/DeckList.h"

namespace lamkit {

/// What the runs of all decks have in common.
struct SolveSettings {
  std::filesystem::path results;  ///< the folder that holds the decks' folders
  std::filesystem::path program;  ///< lamcraft
  Versions versions;
  std::optional<std::chrono::duration<double>> timeout;
  bool force = false;   ///< run lamcraft whatever check says
  bool resume = false;  ///< leave out decks whose folder is there already
};

/// How a deck came to its folder.
struct DeckOutcome {
  RunRecord record;
  bool isSkipped = false;  ///< the folder was there already
};

/// Checks a deck, runs lamcraft on it, judges what came out, and puts the whole into
/// results/NAME at once. Throws Failure when the deck cannot be read or the folder cannot be
/// written; there is no new folder then.
[[nodiscard]] DeckOutcome runDeck(const DeckJob& job, const SolveSettings& settings);

}  // namespace lamkit

#endif
