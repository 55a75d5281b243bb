// Runs every deck of examples/ with the stand-in library and compares console and data files, byte
// for byte, with what a person has approved (LAMCRAFT_APPROVE=1 writes them anew, into
// tests/golden/examples/<example>/fake/).

#include <filesystem>
#include <fstream>
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

fs::path deckOf(const std::string& example) {
  return fs::path(LAMCRAFT_EXAMPLES) / (example + ".qdk");
}

fs::path approvedFolder(const std::string& example, const std::string& library) {
  return fs::path(LAMCRAFT_TEST_DATA) / "golden" / "examples" / example / library;
}

std::vector<std::string> exampleNames() {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(LAMCRAFT_EXAMPLES)) {
    names.insert(entry.path().stem().string());
  }
  return {names.begin(), names.end()};
}

bool contains(const std::string& text, const char* const part) {
  return text.find(part) != std::string::npos;
}

/// A weave writes one block of properties and one of decompositions for each of its 18 damage
/// states; the first state stands for all here. The golden case of a whole weave holds the others.
std::string firstStateOf(const std::string& content) {
  std::istringstream in(content);
  std::string kept;
  bool isLeftOut = false;
  for (std::string line; std::getline(in, line);) {
    if (contains(line, "<props set=") || contains(line, "<decomp set=")) {
      isLeftOut = !contains(line, " set=\"1\"");
    }
    if (!isLeftOut) {
      kept += line + "\n";
    }
    if (contains(line, "</props>") || contains(line, "</decomp>")) {
      isLeftOut = false;
    }
  }
  return kept;
}

/// The monitor prints a line a second: how many there are depends on the machine.
std::string withoutIterations(const std::string& console) {
  std::istringstream in(console);
  std::string kept;
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("Iteration: ", 0) != 0) {
      kept += line + "\n";
    }
  }
  return kept;
}

GoldenFiles produced(const std::string& example, const char* const libraryFolder) {
  ProcessRun process;
  process.program = LAMCRAFT_PROGRAM;
  process.environment["LD_LIBRARY_PATH"] = libraryFolder;
  GoldenFiles files = filesOfRun(deckOf(example), process);
  files["console.txt"] = withoutIterations(files["console.txt"]);
  const bool hasFatigue = files.count("fdata.xml") > 0;
  if (hasFatigue && files["fdata.xml"] == files["mdata.xml"]) {
    files["fdata.xml"] = "the same as mdata.xml\n";
  }
  for (const char* const name : {"mdata.xml", "fdata.xml"}) {
    if (files.count(name) > 0) {
      files[name] = firstStateOf(files[name]);
    }
  }
  return files;
}

class Examples : public testing::TestWithParam<std::string> {};

TEST_P(Examples, WithTheStandInComeOutAsApproved) {
  const fs::path folder = approvedFolder(GetParam(), "fake");
  const GoldenFiles actual = produced(GetParam(), LAMCRAFT_FAKE_FOLDER);
  if (isApproving()) {
    approve(folder, actual);
    GTEST_SKIP() << "approved anew";
  }
  const GoldenFiles expected = filesOf(folder);
  expectSameNames(expected, actual);
  for (const auto& [name, content] : expected) {
    if (actual.count(name) > 0) {
      EXPECT_TRUE(actual.at(name) == content)
          << name << " differs, " << firstDifference(content, actual.at(name));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Decks,
                         Examples,
                         testing::ValuesIn(exampleNames()),
                         [](const auto& instance) {
                           std::string name = instance.param;
                           for (char& c : name) {
                             c = c == '-' ? '_' : c;
                           }
                           return name;
                         });

}  // namespace
}  // namespace lamcraft::test
