// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_TESTS_SOLVE_SOLVEDDECKS_H
#define LAMKIT_TESTS_SOLVE_SOLVEDDECKS_H

#include <filesystem>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include "support/ProcessRun.h"
#include "support/TemporaryFolder.h"
#include "support/UniDeck.h"

namespace lamkit {

/// Decks in a folder of their own, and what lamkit makes of them.
struct SolvedDecks {
  lamcraft::test::TemporaryFolder root;
  std::vector<std::string> decks;
  std::map<std::string, std::string> environment;

  /// Makes lamcraft run with the stand-in library.
  void useFake() { environment["LD_LIBRARY_PATH"] = LAMCRAFT_FAKE_FOLDER; }

  SolvedDecks() { std::filesystem::create_directory(root.path() / "decks"); }

  /// Adds a deck with a name of its own in it.
  void add(const std::string& name, const std::string& text = {}) {
    lamcraft::test::UniDeck deck;
    deck.material = "*MATERIAL, TYPE=UNI, SYSTEM=XYZ, NAME=" + name + "\n1, 1580, 1.25e-4, 450\n";
    decks.push_back(root.write("decks/" + name + ".qdk", text.empty() ? deck.text() : text));
  }

  [[nodiscard]] std::vector<std::string> arguments(const std::vector<std::string>& more) const {
    std::vector<std::string> all{"solve", "--results", root.file("out")};
    all.insert(all.end(), more.begin(), more.end());
    all.insert(all.end(), decks.begin(), decks.end());
    return all;
  }

  [[nodiscard]] lamcraft::test::ProcessResult solve(
      const std::vector<std::string>& more = {}) const {
    return lamcraft::test::run({LAMKIT_PROGRAM, arguments(more), environment, {}});
  }

  [[nodiscard]] std::filesystem::path folder(const std::string& name) const {
    return root.path() / "out" / name;
  }

  /// Every file and folder below "out" with its content, times left out.
  [[nodiscard]] std::map<std::string, std::string> files() const {
    // A run's time, and the lines of its monitor, which looks at the iterations once a second.
    static const std::regex kTimes("\"seconds\": [-+.e0-9]+|Iteration: [^\n]*\n");
    std::map<std::string, std::string> all;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root.path() / "out")) {
      const std::string name = std::filesystem::relative(entry.path(), root.path()).string();
      all[name] = entry.is_directory()
                      ? "folder"
                      : std::regex_replace(lamcraft::test::contentOf(entry.path()), kTimes, "");
    }
    return all;
  }
};

}  // namespace lamkit

#endif
