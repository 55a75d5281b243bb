// SPDX-License-Identifier: BSD-3-Clause
// Two corpora: slips that users make, each with what must be said about it, and sound decks with
// the few warnings that an engineer agrees with.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "check/Check.h"
#include "support/TemporaryFolder.h"

namespace lamkit {
namespace {

namespace fs = std::filesystem;
using lamcraft::test::contentOf;
using lamcraft::test::TemporaryFolder;
using nlohmann::json;

const fs::path kRoot = fs::path(LAMCRAFT_TEST_DATA).parent_path();
const fs::path kCorpus = fs::path(LAMCRAFT_TEST_DATA) / "kit/check";

json jsonOf(const std::string& name) {
  return json::parse(contentOf(kCorpus / name));
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << "nothing to replace: " << from;
  return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

std::string twoByte(const std::string& text, const bool isLittleEndian) {
  std::string result = isLittleEndian ? "\xFF\xFE" : "\xFE\xFF";
  for (const char character : text) {
    result += isLittleEndian ? std::string{character, '\0'} : std::string{'\0', character};
  }
  return result;
}

/// As an editor with other settings would have saved it.
std::string savedAs(std::string text, const std::string& how) {
  if (how == "bom") {
    return "\xEF\xBB\xBF" + text;
  }
  if (how == "utf-16le" || how == "utf-16be") {
    return twoByte(text, how == "utf-16le");
  }
  if (how == "cr") {
    std::replace(text.begin(), text.end(), '\n', '\r');
  } else if (how == "latin-1") {
    return replaced(text, "\xC3\xA9", "\xE9");
  }
  return text;
}

std::string exampleDeck(const json& slip) {
  return contentOf(kRoot / "examples" / (slip["deck"].get<std::string>() + ".qdk"));
}

std::string deckOf(const json& slip) {
  std::string text = exampleDeck(slip);
  for (const json& edit : slip["edits"]) {
    text = replaced(text, edit[0], edit[1]);
  }
  return savedAs(text, slip.value("saved", ""));
}

std::string described(const std::vector<Finding>& findings) {
  std::string text;
  for (const Finding& finding : findings) {
    text += std::to_string(finding.line) + ": " + nameOf(finding.severity) + ": " +
            finding.message + " [" + finding.rule + "]\n";
  }
  return text;
}

std::size_t lineCount(const std::string& deck) {
  return static_cast<std::size_t>(
      std::count_if(deck.begin(), deck.end(), [](char c) { return c == '\n' || c == '\r'; }) + 1);
}

/// Runs in a folder of its own, where no material is.
class Corpus : public testing::Test {
 protected:
  Corpus() : before_(fs::current_path()) { fs::current_path(folder_.path()); }
  Corpus(const Corpus&) = delete;
  Corpus& operator=(const Corpus&) = delete;
  ~Corpus() override { fs::current_path(before_); }

 private:
  TemporaryFolder folder_;
  fs::path before_;
};

using SlipCorpus = Corpus;
using SoundCorpus = Corpus;

TEST_F(SlipCorpus, EverySlipIsFoundOnItsLineAndNothingElseIsSaid) {
  std::map<std::string, std::set<std::string>> usual;  // what the unchanged example is told
  const json slips = jsonOf("slips.json");
  EXPECT_GE(slips.size(), 80U);
  for (const json& slip : slips) {
    const std::string example = slip["deck"];
    if (usual.count(example) == 0) {
      for (const Finding& finding : checkDeckText(exampleDeck(slip))) {
        usual[example].insert(finding.rule + finding.message);
      }
    }
    const std::string deck = deckOf(slip);
    const std::vector<Finding> findings = checkDeckText(deck);
    const std::string rule = slip["rule"];
    const bool isFound = std::any_of(findings.begin(), findings.end(), [&](const Finding& finding) {
      return finding.rule == rule && finding.severity != Severity::note &&
             nameOf(finding.severity) == slip["severity"] &&
             finding.line == slip["line"].get<std::size_t>();
    });
    EXPECT_TRUE(isFound) << slip["slip"] << " wants " << rule << " on line " << slip["line"]
                         << ", found:\n"
                         << described(findings);
    const auto also = slip.value("also", std::vector<std::string>());
    for (const Finding& finding : findings) {
      const bool isExpected = finding.rule == rule || finding.severity == Severity::note ||
                              std::find(also.begin(), also.end(), finding.rule) != also.end() ||
                              usual[example].count(finding.rule + finding.message) > 0;
      EXPECT_TRUE(isExpected) << slip["slip"] << " brings " << described({finding});
      EXPECT_LE(finding.line, lineCount(deck)) << slip["slip"];
    }
  }
}

/// The rules of the guide, which each have their slip.
TEST_F(SlipCorpus, HoldsEveryRule) {
  std::set<std::string> rules;
  for (const json& slip : jsonOf("slips.json")) {
    rules.insert(slip["rule"]);
  }
  for (const char* const rule : {"byte-order-mark",
                                 "utf-16",
                                 "cr-only",
                                 "odd-character",
                                 "unknown-keyword",
                                 "missing-parent",
                                 "misplaced-keyword",
                                 "second-material",
                                 "missing-parameter",
                                 "unknown-parameter",
                                 "duplicate-parameter",
                                 "unknown-text",
                                 "missing-value",
                                 "not-a-number",
                                 "decimal-comma",
                                 "extra-values",
                                 "trailing-comment",
                                 "missing-keyword",
                                 "no-environment",
                                 "missing-solve",
                                 "out-of-range",
                                 "inadmissible",
                                 "unit-slip",
                                 "implausible",
                                 "swapped",
                                 "reference-temperature",
                                 "scatter",
                                 "sn-data",
                                 "shear-curve",
                                 "start-far",
                                 "results-folder"}) {
    EXPECT_EQ(rules.count(rule), 1U) << rule;
  }
}

std::vector<fs::path> soundDecks() {
  std::vector<fs::path> decks;
  for (const fs::path& folder : {kRoot / "examples", kCorpus / "sound"}) {
    for (const auto& entry : fs::directory_iterator(folder)) {
      if (entry.path().extension() == ".qdk") {
        decks.push_back(entry.path());
      }
    }
  }
  return decks;
}

TEST_F(SoundCorpus, HasTheWarningsOfItsTableAndNoOthers) {
  const json table = jsonOf("expected_warnings.json");
  const std::vector<fs::path> decks = soundDecks();
  EXPECT_GE(decks.size(), 25U);
  for (const fs::path& deck : decks) {
    std::vector<std::string> warnings;
    for (const Finding& finding : checkDeck(deck.string()).findings) {
      if (finding.severity != Severity::note) {
        warnings.push_back(finding.rule + " " + nameOf(finding.severity) + " " +
                           std::to_string(finding.line) + " " + finding.keyword);
      }
    }
    const std::string name = deck.stem().string();
    const auto expected = table.value(name, std::vector<std::string>());
    EXPECT_EQ(warnings, expected) << name;
  }
}

}  // namespace
}  // namespace lamkit
