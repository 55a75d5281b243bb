// Runs the program on a deck with the stand-in library and compares all that comes out, byte for
// byte, with what a person has approved: console, calls of the library, and the material folder.
//
// A case is a folder with
//   deck.qdk      the deck
//   settings.txt  optional: environment variables, one NAME=VALUE a line
//   expected/     console.txt, calls.txt, and the files of the material folder
// With LAMCRAFT_APPROVE=1 in the environment the expected files are written anew instead; read what
// changed before you commit it.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/ProcessRun.h"
#include "support/TemporaryFolder.h"

namespace lamcraft::test {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

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

void addFilesOf(const fs::path& folder, Files& files) {
  if (!fs::is_directory(folder)) {
    return;
  }
  for (const auto& entry : fs::directory_iterator(folder)) {
    files[entry.path().filename().string()] = withoutBulk(contentOf(entry.path()));
  }
}

/// All that the program leaves behind for the deck of a case.
Files produced(const fs::path& golden) {
  const TemporaryFolder workplace;
  fs::copy_file(golden / "deck.qdk", workplace.path() / "deck.qdk");
  ProcessRun run{LAMCRAFT_PROGRAM, {"deck.qdk", "out"}, settingsOf(golden), workplace.path()};
  run.environment["LD_LIBRARY_PATH"] = LAMCRAFT_FAKE_FOLDER;
  run.environment["KXFAKE_LOG"] = workplace.file("calls.txt");
  const ProcessResult result = test::run(run);
  EXPECT_EQ(result.err, "");

  Files files;
  addFilesOf(workplace.path() / "out", files);
  if (files.count("fdata.xml") > 0 && files["fdata.xml"] == files["mdata.xml"]) {
    files["fdata.xml"] = "the same as mdata.xml\n";
  }
  files["console.txt"] = result.out + "exit code " + std::to_string(result.exitCode) + "\n";
  if (fs::exists(workplace.path() / "calls.txt")) {
    files["calls.txt"] = contentOf(workplace.path() / "calls.txt");
  }
  return files;
}

void approve(const fs::path& folder, const Files& files) {
  fs::remove_all(folder);
  fs::create_directories(folder);
  for (const auto& [name, content] : files) {
    std::ofstream(folder / name, std::ios::binary) << content;
  }
}

/// The first line that differs, with its number: whole files would bury it.
std::string firstDifference(const std::string& expected, const std::string& actual) {
  std::istringstream left(expected);
  std::istringstream right(actual);
  std::string leftLine;
  std::string rightLine;
  for (int number = 1;; ++number) {
    const bool hasLeft = static_cast<bool>(std::getline(left, leftLine));
    const bool hasRight = static_cast<bool>(std::getline(right, rightLine));
    if (!hasLeft && !hasRight) {
      return "only in the line ends";
    }
    if (!hasLeft || !hasRight || leftLine != rightLine) {
      return "line " + std::to_string(number) + "\nexpected: " + (hasLeft ? leftLine : "(end)") +
             "\nactual:   " + (hasRight ? rightLine : "(end)");
    }
  }
}

class Golden : public testing::TestWithParam<std::string> {};

TEST_P(Golden, ComesOutAsApproved) {
  const fs::path golden = goldenFolder() / GetParam();
  const Files actual = produced(golden);
  if (std::getenv("LAMCRAFT_APPROVE") != nullptr) {
    approve(golden / "expected", actual);
    GTEST_SKIP() << "approved anew";
  }
  Files expected;
  addFilesOf(golden / "expected", expected);
  for (const auto& [name, content] : expected) {
    ASSERT_EQ(actual.count(name), 1U) << name << " was not written";
    EXPECT_TRUE(actual.at(name) == content)
        << name << " differs, " << firstDifference(content, actual.at(name));
  }
  for (const auto& [name, content] : actual) {
    EXPECT_EQ(expected.count(name), 1U) << name << " was written, and is not expected";
  }
}

INSTANTIATE_TEST_SUITE_P(Decks, Golden, testing::ValuesIn(caseNames()), [](const auto& instance) {
  return instance.param;
});

}  // namespace
}  // namespace lamcraft::test
