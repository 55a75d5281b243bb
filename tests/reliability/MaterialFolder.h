// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_RELIABILITY_MATERIALFOLDER_H
#define LAMCRAFT_TESTS_RELIABILITY_MATERIALFOLDER_H

#include <filesystem>
#include <map>
#include <string>

#include "support/TemporaryFolder.h"
#include "support/UniDeck.h"

namespace lamcraft::test {

/// The files of a folder by their names.
using Files = std::map<std::string, std::string>;

/// What lies in a folder; nothing when it is not there. Folders in it are left out, and, when
/// `withParts` is false, so are the parts of files that a killed run leaves.
Files filesIn(const std::filesystem::path& folder, bool withParts = true);

/// The names alone, each followed by a blank.
std::string namesOf(const Files& files);

/// A deck that gives all three files, for the folder "out" of `folder`. A later deck of another
/// `fiberFraction` gives other files, and takes the place of an old material.
UniDeck completeDeck(const std::string& fiberFraction = "0.6");

/// What a run of `deck` leaves that nothing disturbs.
Files undisturbed(const UniDeck& deck);

/// Whether `files` can be trusted: each is whole, the `old` one or the `fresh` one, no old one is
/// gone, and fresh data stand beside the copy of their deck.
bool isSound(const Files& files, const Files& old, const Files& fresh);

}  // namespace lamcraft::test

#endif
