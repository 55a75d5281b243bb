// SPDX-License-Identifier: BSD-3-Clause
// Runs the program on a deck with the stand-in library and compares all that comes out, byte for
// byte, with what a person has approved: console, calls of the library, and the material folder.
//
// A case is a folder with
//   deck.qdk      the deck
//   settings.txt  optional: environment variables, one NAME=VALUE a line
//   expected/     console.txt, calls.txt, and the files of the material folder
// With LAMCRAFT_APPROVE=1 in the environment the expected files are written anew instead; read what
// changed before you commit it.

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "golden/GoldenFiles.h"
#include "support/ProcessRun.h"

namespace lamcraft::test {
namespace {

namespace fs = std::filesystem;

fs::path goldenFolder() {
  return fs::path(LAMCRAFT_TEST_DATA) / "golden";
}

std::vector<std::string> caseNames() {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(goldenFolder())) {
    if (fs::exists(entry.path() / "deck.qdk")) {
      names.insert(entry.path().filename().string());
    }
  }
  return {names.begin(), names.end()};
}

std::map<std::string, std::string> settingsOf(const fs::path& golden) {
  std::map<std::string, std::string> settings;
  std::ifstream file(golden / "settings.txt");
  for (std::string line; std::getline(file, line);) {
    const std::size_t equals = line.find('=');
    settings[line.substr(0, equals)] = line.substr(equals + 1);
  }
  return settings;
}

/// The data file of a weave holds some twelve thousand decomposition values; the golden files keep
/// one of each matrix. Which value stands where is for the tests of the data files.
std::string withoutBulk(const std::string& content) {
  std::istringstream in(content);
  std::string kept;
  for (std::string line; std::getline(in, line);) {
    const std::size_t tag = line.find_first_not_of(' ');
    const bool isValue = tag != std::string::npos && line.compare(tag, 2, "<D") == 0;
    const bool isKept = isValue && line.compare(tag, 5, "<D12 ") == 0;
    if (!isValue || isKept) {
      kept += line + "\n";
    }
  }
  return kept;
}

/// All that the program leaves behind for the deck of a case.
GoldenFiles produced(const fs::path& golden) {
  ProcessRun process;
  process.program = LAMCRAFT_PROGRAM;
  process.environment = settingsOf(golden);
  process.environment["LD_LIBRARY_PATH"] = LAMCRAFT_FAKE_FOLDER;
  GoldenFiles files = filesOfRun(golden / "deck.qdk", process, "KXFAKE_LOG");
  for (const char* const name : {"mdata.xml", "fdata.xml"}) {
    if (files.count(name) > 0) {
      files[name] = withoutBulk(files[name]);
    }
  }
  if (files.count("fdata.xml") > 0 && files["fdata.xml"] == files["mdata.xml"]) {
    files["fdata.xml"] = "the same as mdata.xml\n";
  }
  return files;
}

class Golden : public testing::TestWithParam<std::string> {};

TEST_P(Golden, ComesOutAsApproved) {
  const fs::path golden = goldenFolder() / GetParam();
  const GoldenFiles actual = produced(golden);
  if (isApproving()) {
    approve(golden / "expected", actual);
    GTEST_SKIP() << "approved anew";
  }
  const GoldenFiles expected = filesOf(golden / "expected");
  expectSameNames(expected, actual);
  for (const auto& [name, content] : expected) {
    if (actual.count(name) > 0) {
      EXPECT_TRUE(actual.at(name) == content)
          << name << " differs, " << firstDifference(content, actual.at(name));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Decks, Golden, testing::ValuesIn(caseNames()), [](const auto& instance) {
  return instance.param;
});

}  // namespace
}  // namespace lamcraft::test
