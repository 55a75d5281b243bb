// SPDX-License-Identifier: BSD-3-Clause
#include "golden/GoldenFiles.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace lamcraft::test {

namespace fs = std::filesystem;

GoldenFiles filesOfRun(const fs::path& deck, ProcessRun process, const std::string& callsVariable) {
  const TemporaryFolder folder;
  fs::copy_file(deck, folder.path() / "deck.qdk");
  process.arguments = {"deck.qdk", "out"};
  process.folder = folder.path();
  const fs::path calls = folder.path() / "calls.txt";
  if (!callsVariable.empty()) {
    process.environment[callsVariable] = calls;
  }
  const ProcessResult result = run(process);
  EXPECT_EQ(result.err, "");

  GoldenFiles files = filesOf(folder.path() / "out");
  files["console.txt"] = result.out + "exit code " + std::to_string(result.exitCode) + "\n";
  if (fs::exists(calls)) {
    files["calls.txt"] = contentOf(calls);
  }
  return files;
}

GoldenFiles filesOf(const fs::path& folder) {
  GoldenFiles files;
  if (fs::is_directory(folder)) {
    for (const auto& entry : fs::directory_iterator(folder)) {
      files[entry.path().filename().string()] = contentOf(entry.path());
    }
  }
  return files;
}

bool isApproving() {
  return std::getenv("LAMCRAFT_APPROVE") != nullptr;
}

void approve(const fs::path& folder, const GoldenFiles& files) {
  fs::remove_all(folder);
  fs::create_directories(folder);
  for (const auto& [name, content] : files) {
    std::ofstream(folder / name, std::ios::binary) << content;
  }
}

void expectSameNames(const GoldenFiles& expected, const GoldenFiles& actual) {
  for (const auto& [name, content] : expected) {
    EXPECT_EQ(actual.count(name), 1U) << name << " was not written";
  }
  for (const auto& [name, content] : actual) {
    EXPECT_EQ(expected.count(name), 1U) << name << " was written, and is not expected";
  }
}

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

}  // namespace lamcraft::test
