// SPDX-License-Identifier: BSD-3-Clause
#include "driver/Localization.h"

#include <filesystem>
#include <map>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "support/CatalogueFile.h"
#include "support/ProcessRun.h"
#include "support/TemporaryFolder.h"

namespace lamcraft::driver {
namespace {

namespace fs = std::filesystem;
using Environment = std::map<std::string, std::string>;

/// What the probe, a small program that sets up its locale and prints, shows under `environment`.
std::string shown(const std::string& what,
                  const Environment& environment,
                  const std::string& folder = {}) {
  const auto result = test::run({LAMCRAFT_PROBE, {what}, environment, folder});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.err, "");
  return result.out;
}

const fs::path kCatalogues = fs::path(LAMCRAFT_CATALOGUES);

TEST(Localization, CataloguesOfTheBuildAreFoundNextToTheProgram) {
  EXPECT_TRUE(fs::equivalent(installedLocalePath(), kCatalogues)) << installedLocalePath();
}

TEST(Localization, ProgramWithoutAnInstallationLooksInTheWorkingFolder) {
  const test::TemporaryFolder folder;
  fs::create_directory(folder.path() / "bin");
  const std::string copy = folder.file("bin/probe");
  fs::copy_file(LAMCRAFT_PROBE, copy);
  const Environment german{{"LC_ALL", "de_DE.UTF-8"}};
  EXPECT_EQ(test::run({copy, {"installation"}, german}).out, "locale\n");
  EXPECT_EQ(test::run({copy, {"umlauts"}, german, folder.path().string()}).out,
            "FATAL ERROR: Material inputs are invalid: \n");
  fs::copy(kCatalogues, folder.path() / "locale", fs::copy_options::recursive);
  EXPECT_EQ(test::run({copy, {"umlauts"}, german, folder.path().string()}).out,
            "SCHWERWIEGENDER FEHLER: Die Eingabewerte des Werkstoffs sind ung\u00fcltig: \n");
}

TEST(Localization, UmlautsArriveAsUtf8) {
  const std::string text =
      "SCHWERWIEGENDER FEHLER: Die Eingabewerte des Werkstoffs sind ung\u00fcltig: \n";
  EXPECT_EQ(shown("umlauts", {{"LC_ALL", "de_DE.UTF-8"}}), text);
  EXPECT_EQ(shown("umlauts", {{"LANG", "de_DE.UTF-8"}}), text);
  EXPECT_EQ(shown("umlauts", {{"LC_ALL", "C"}, {"LC_CTYPE", "de_DE.UTF-8"}}), text);
}

TEST(Localization, EveryMessageOfEveryLanguageArrivesAsUtf8) {
  const fs::path sources = fs::path(LAMCRAFT_TEST_DATA).parent_path() / "locale";
  const std::string keys = (sources / "cvqt.pot").string();
  std::size_t languages = 0;
  for (const auto& folder : fs::directory_iterator(sources)) {
    if (!folder.is_directory()) {
      continue;
    }
    std::string expected;
    for (const auto& entry : test::catalogueEntries(folder.path() / "cvqt.po")) {
      expected += entry.translation + "\n";
    }
    // The language alone chooses the catalogue: its locale need not be installed.
    const std::string locale = folder.path().filename().string() + ".UTF-8";
    const Environment user{{"LC_ALL", "C"}, {"LC_CTYPE", locale}};
    EXPECT_EQ(test::run({LAMCRAFT_PROBE, {"messages", keys}, user}).out, expected) << locale;
    ++languages;
  }
  EXPECT_EQ(languages, 6U);
}

TEST(Localization, NumbersAndListsFollowTheUser) {
  EXPECT_EQ(shown("numbers", {{"LC_ALL", "C"}}), " 1.500e+05, 1234567 0.5\n");
  EXPECT_EQ(shown("numbers", {{"LC_ALL", "en_US.UTF-8"}}), " 1.500e+05, 1,234,567 0.5\n");
  EXPECT_EQ(shown("numbers", {{"LC_ALL", "de_DE.UTF-8"}}), " 1,500e+05; 1.234.567 0,5\n");
}

TEST(Localization, LcAllThatNamesALanguageRulesTextsNumbersAndLists) {
  const Environment german{{"LC_ALL", "de_DE.UTF-8"}, {"LC_CTYPE", "C.UTF-8"}};
  EXPECT_EQ(shown("numbers", german), " 1,500e+05; 1.234.567 0,5\n");
  EXPECT_EQ(shown("umlauts", german), shown("umlauts", {{"LC_ALL", "de_DE.UTF-8"}}));
  EXPECT_EQ(shown("numbers", {{"LC_ALL", "en_US.UTF-8"}, {"LC_CTYPE", "de_DE.UTF-8"}}),
            " 1.500e+05, 1,234,567 0.5\n");
}

TEST(Localization, SeparatorAsksForTheWholeNameOfTheLocale) {
  EXPECT_EQ(shown("numbers", {{"LC_ALL", "de_DE.utf8"}}), " 1,500e+05, 1.234.567 0,5\n");
}

TEST(Localization, NumbersOfFilesStayInC) {
  for (const char* locale : {"C", "en_US.UTF-8", "de_DE.UTF-8"}) {
    EXPECT_EQ(shown("files", {{"LC_ALL", locale}}), "1.5 2.50 1234567.5\n");
  }
}

TEST(Localization, LinesOfTwoThreadsArriveWhole) {
  const std::string out = shown("threads", {{"LC_ALL", "de_DE.UTF-8"}});
  std::size_t main = 0;
  std::size_t monitor = 0;
  std::istringstream lines(out);
  for (std::string line; std::getline(lines, line);) {
    main += line == "Iterationen der Erm\u00fcdung: main 0,5" ? 1 : 0;
    monitor += line == "Iterationen der Erm\u00fcdung: monitor 0,5" ? 1 : 0;
  }
  EXPECT_EQ(main, 200U);
  EXPECT_EQ(monitor, 200U);
}

}  // namespace
}  // namespace lamcraft::driver
