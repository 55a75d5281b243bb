// SPDX-License-Identifier: BSD-3-Clause
// The Windows program and that of this machine on the same decks: they must leave the same files
// and say the same, line ends and code pages aside.

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "golden/GoldenFiles.h"
#include "windows/WindowsProgram.h"

namespace lamcraft::test {
namespace {

namespace fs = std::filesystem;

/// Every deck in these folders and those below them.
std::vector<std::string> decksIn(const std::vector<std::string>& folders) {
  std::set<std::string> found;
  for (const std::string& folder : folders) {
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(LAMCRAFT_ROOT) / folder)) {
      const fs::path& path = entry.path();
      if (path.extension() == ".qdk" && path.filename() != "input.qdk") {
        found.insert(path.lexically_relative(LAMCRAFT_ROOT).string());
      }
    }
  }
  return {found.begin(), found.end()};
}

/// The name of a test on a deck: its path without what test names may not hold.
std::string testName(const std::string& deck) {
  std::string name = deck.substr(0, deck.rfind('.'));
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  return name;
}

GoldenFiles filesOfLinux(const fs::path& deck, const std::string& libraries) {
  ProcessRun process;
  process.program = LAMCRAFT_LINUX_BUILD "/bin/lamcraft";
  process.environment = {{"LC_ALL", "C.UTF-8"},
                         {"LD_LIBRARY_PATH", LAMCRAFT_LINUX_BUILD "/" + libraries}};
  return filesOfRun(deck, process, "KXFAKE_LOG");
}

GoldenFiles filesOfWindows(const fs::path& deck, WindowsProgram::Library library) {
  const WindowsProgram windows(library);
  fs::copy_file(deck, windows.folder().file("deck.qdk"));
  const ProcessResult result = windows.run({"deck.qdk", "out"}, {{"KXFAKE_LOG", "calls.txt"}});
  GoldenFiles files = filesOf(windows.folder().path() / "out");
  files["console.txt"] = result.out + "exit code " + std::to_string(result.exitCode) + "\n";
  if (fs::exists(windows.folder().path() / "calls.txt")) {
    files["calls.txt"] = contentOf(windows.folder().path() / "calls.txt");
  }
  for (auto& [name, content] : files) {
    content = withPlainLineEnds(content);
  }
  return files;
}

class SameAsLinux : public testing::TestWithParam<std::string> {};

TEST_P(SameAsLinux, WithTheStandInByteForByte) {
  const fs::path deck = fs::path(LAMCRAFT_ROOT) / GetParam();
  const GoldenFiles expected = filesOfLinux(deck, "fake");
  const GoldenFiles actual = filesOfWindows(deck, WindowsProgram::Library::standIn);
  expectSameNames(expected, actual);
  for (const auto& [name, content] : expected) {
    if (actual.count(name) == 0) {
      continue;
    }
    EXPECT_TRUE(actual.at(name) == content)
        << name << " differs, " << firstDifference(content, actual.at(name));
  }
}

/// Whether two texts are alike but for numbers, and how far at most a number is from its
/// counterpart.
struct Likeness {
  bool sameText = true;
  double deviation = 0.0;
};

bool startsNumber(const char* text) {
  return std::isdigit(static_cast<unsigned char>(*text)) != 0;
}

/// The deviation of two numbers: a part of the first, but that of errors of a fit as it is. They
/// are relative errors themselves, and what is left of them at the end of a good fit is rounding.
double deviationOf(double left, double right, bool isError) {
  if (left == right) {
    return 0.0;
  }
  return std::abs(left - right) / (isError ? 1.0 : std::abs(left));
}

Likeness likenessOfLines(const std::string& left, const std::string& right) {
  Likeness result;
  const bool isError = left.find(" final=\"") != std::string::npos;
  const char* a = left.c_str();
  const char* b = right.c_str();
  while (*a != '\0' && *b != '\0') {
    if (startsNumber(a) && startsNumber(b)) {
      char* aEnd = nullptr;
      char* bEnd = nullptr;
      const double deviation = deviationOf(std::strtod(a, &aEnd), std::strtod(b, &bEnd), isError);
      result.deviation = std::max(result.deviation, deviation);
      a = aEnd;
      b = bEnd;
    } else if (*a++ != *b++) {
      return {false, 0.0};
    }
  }
  result.sameText = *a == *b;
  return result;
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  return lines;
}

Likeness likeness(const std::string& left, const std::string& right) {
  const std::vector<std::string> leftLines = linesOf(left);
  const std::vector<std::string> rightLines = linesOf(right);
  Likeness result{leftLines.size() == rightLines.size(), 0.0};
  for (std::size_t i = 0; result.sameText && i < leftLines.size(); ++i) {
    const Likeness lines = likenessOfLines(leftLines[i], rightLines[i]);
    result.sameText = lines.sameText;
    result.deviation = std::max(result.deviation, lines.deviation);
  }
  return result;
}

class EngineSameAsLinux : public testing::TestWithParam<std::string> {};

TEST_P(EngineSameAsLinux, ToNineDigits) {
  const fs::path deck = fs::path(LAMCRAFT_ROOT) / GetParam();
  const GoldenFiles expected = filesOfLinux(deck, "lib");
  const GoldenFiles actual = filesOfWindows(deck, WindowsProgram::Library::engine);
  for (const char* name : {"mdata.xml", "fdata.xml"}) {
    ASSERT_EQ(actual.count(name), expected.count(name)) << name;
    if (expected.count(name) == 0) {
      continue;
    }
    const Likeness files = likeness(expected.at(name), actual.at(name));
    EXPECT_TRUE(files.sameText) << name;
    // Both compute the same with mathematical libraries that round the last digit differently.
    EXPECT_LE(files.deviation, 1e-9) << name;
  }
}

INSTANTIATE_TEST_SUITE_P(Decks,
                         SameAsLinux,
                         testing::ValuesIn(decksIn({"tests/golden", "examples"})),
                         [](const auto& instance) { return testName(instance.param); });

/// The examples of unidirectional materials. Those of weaves agree to some 1e-6 alone: their engine
/// solves unit cells by iteration, up to a tolerance of 1e-4, and with another transform on
/// Windows.
std::vector<std::string> unidirectionalExamples() {
  std::vector<std::string> found;
  for (const std::string& deck : decksIn({"examples"})) {
    if (contentOf(fs::path(LAMCRAFT_ROOT) / deck).find("TYPE=UNI") != std::string::npos) {
      found.push_back(deck);
    }
  }
  return found;
}

INSTANTIATE_TEST_SUITE_P(Decks,
                         EngineSameAsLinux,
                         testing::ValuesIn(unidirectionalExamples()),
                         [](const auto& instance) { return testName(instance.param); });

}  // namespace
}  // namespace lamcraft::test
