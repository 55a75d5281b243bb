// SPDX-License-Identifier: BSD-3-Clause
// What holds for every deck, tried on many that a random hand has changed.

#include <algorithm>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "kit/check/support/CheckPromises.h"
#include "support/TemporaryFolder.h"

namespace lamkit {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> decksOfTheTree() {
  const fs::path tests = LAMCRAFT_TEST_DATA;
  std::vector<std::string> decks;
  for (const fs::path& folder : {tests.parent_path() / "examples", tests / "kit/check/sound"}) {
    for (const auto& entry : fs::directory_iterator(folder)) {
      if (entry.path().extension() == ".qdk") {
        decks.push_back(lamcraft::test::contentOf(entry.path()));
      }
    }
  }
  for (const auto& entry : fs::directory_iterator(tests / "golden")) {
    if (fs::exists(entry.path() / "deck.qdk")) {
      decks.push_back(lamcraft::test::contentOf(entry.path() / "deck.qdk"));
    }
  }
  return decks;
}

/// Makes decks from others by changes of the kinds that hands and programs make.
class DeckChanger {
 public:
  explicit DeckChanger(const unsigned seed) : random_(seed) {}

  std::string changed(std::string deck) {
    const std::size_t changes = 1 + below(3);
    for (std::size_t i = 0; i < changes; ++i) {
      switch (below(6)) {
        case 0:
          deck = withOtherByte(deck);
          break;
        case 1:
          deck = withoutLine(deck);
          break;
        case 2:
          deck = withSwappedLines(deck);
          break;
        default:
          deck = withOtherValue(deck);
          break;
      }
    }
    return deck;
  }

  std::size_t below(const std::size_t count) {
    return count == 0 ? 0 : std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
  }

 private:
  static std::vector<std::string> linesOf(const std::string& deck) {
    std::vector<std::string> lines;
    std::size_t begin = 0;
    while (begin < deck.size()) {
      const std::size_t end = std::min(deck.find('\n', begin), deck.size() - 1);
      lines.push_back(deck.substr(begin, end - begin + 1));
      begin = end + 1;
    }
    return lines;
  }

  static std::string joined(const std::vector<std::string>& lines) {
    std::string deck;
    for (const std::string& line : lines) {
      deck += line;
    }
    return deck;
  }

  std::string withOtherByte(std::string deck) {
    if (!deck.empty()) {
      const std::string bytes = "*,=.-+eE \"\r\n\t0123456789ABDFILMNRTX\xC2\xE9\x01";
      deck[below(deck.size())] = bytes[below(bytes.size())];
    }
    return deck;
  }

  std::string withoutLine(const std::string& deck) {
    std::vector<std::string> lines = linesOf(deck);
    if (!lines.empty()) {
      lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(below(lines.size())));
    }
    return joined(lines);
  }

  std::string withSwappedLines(const std::string& deck) {
    std::vector<std::string> lines = linesOf(deck);
    if (!lines.empty()) {
      std::swap(lines[below(lines.size())], lines[below(lines.size())]);
    }
    return joined(lines);
  }

  /// A value of a data line, or a parameter, replaced by another one.
  std::string withOtherValue(const std::string& deck) {
    static const std::vector<std::string> kValues{
        "0",         "1",           "-1",       "0.5",    "1e300", "-1e300",     "1e-300",
        "nan",       "inf",         "",         "abc",    "1e9",   "1e6",        "1e-6",
        "60",        "0.999",       "1.0",      "0.4999", "23",    "1e308",      "5e-324",
        "-0.5",      "2",           "3",        "4",      "UNI",   "PLAINWEAVE", "DEFAULT",
        "LAW=ORTHO", "LAW=TRANS12", "PROP=E11", "1e20",   "1e-20", "1e150",      "1e-150"};
    std::vector<std::size_t> commas;
    for (std::size_t i = 0; i < deck.size(); ++i) {
      if (deck[i] == ',') {
        commas.push_back(i);
      }
    }
    if (commas.empty()) {
      return deck;
    }
    const std::size_t begin = commas[below(commas.size())] + 1;
    const std::size_t end = std::min(deck.find_first_of(",\n", begin), deck.size());
    return deck.substr(0, begin) + kValues[below(kValues.size())] + deck.substr(end);
  }

  std::mt19937 random_;
};

TEST(CheckProperties, HoldForTheDecksOfTheTree) {
  for (const std::string& deck : decksOfTheTree()) {
    EXPECT_EQ(test::brokenPromise(deck), "") << deck;
  }
}

/// Four seeds of 25,000 decks each, so that they run side by side.
class RandomDecks : public testing::TestWithParam<unsigned> {};

TEST_P(RandomDecks, KeepEveryPromise) {
  constexpr int kDecks = 25000;
  constexpr int kEnough = 20;
  const std::vector<std::string> decks = decksOfTheTree();
  DeckChanger changer(GetParam());
  int broken = 0;
  for (int i = 0; i < kDecks && broken < kEnough; ++i) {
    const std::string deck = changer.changed(decks[changer.below(decks.size())]);
    const std::string promise = test::brokenPromise(deck);
    broken += promise.empty() ? 0 : 1;
    EXPECT_EQ(promise, "") << "deck " << i << ":\n" << deck;
  }
}

INSTANTIATE_TEST_SUITE_P(BySeed, RandomDecks, testing::Values(1U, 2U, 3U, 20231U));

}  // namespace
}  // namespace lamkit
