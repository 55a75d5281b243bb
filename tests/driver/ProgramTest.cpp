// SPDX-License-Identifier: BSD-3-Clause
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "support/ProcessRun.h"
#include "support/TemporaryFolder.h"

namespace lamcraft {
namespace {

using test::ProcessResult;
using test::TemporaryFolder;

const std::string kProgram = LAMCRAFT_PROGRAM;

/// Runs the program under the locale `locale`; it must leave the standard error stream alone.
ProcessResult run(const std::vector<std::string>& arguments, const std::string& locale = "C") {
  ProcessResult result = test::run({kProgram, arguments, {{"LC_ALL", locale}}});
  EXPECT_EQ(result.err, "");
  return result;
}

TEST(Program, PrintsBannerAndUsageWithoutADeck) {
  for (const char* locale : {"C", "C.UTF-8", "en_US.UTF-8"}) {
    const ProcessResult result = run({}, locale);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out,
              "Lamcraft " LAMCRAFT_VERSION "\n\nusage:\n" + kProgram +
                  " [INPUT FILE] [RESULTSDIR-OPTIONAL]\n");
  }
}

TEST(Program, SpeaksGermanToGermanUsers) {
  const ProcessResult usage = run({}, "de_DE.UTF-8");
  EXPECT_EQ(usage.exitCode, 0);
  EXPECT_EQ(usage.out,
            "Lamcraft " LAMCRAFT_VERSION "\n\nAufruf:\n" + kProgram +
                " [EINGABEDATEI] [ERGEBNISORDNER-OPTIONAL]\n");
  const ProcessResult parse = run({"fehlt-\xc3\xbc.qdk"}, "de_DE.UTF-8");
  EXPECT_EQ(parse.exitCode, 2);
  EXPECT_EQ(parse.out,
            "SCHWERWIEGENDER FEHLER: Unbekannter Fehler beim Einlesen der Eingabedatei\n"
            "Could not open file fehlt-\xc3\xbc.qdk\n");
}

TEST(Program, LanguageAloneIsNoGermanLocale) {
  const ProcessResult result =
      test::run({kProgram, {}, {{"LC_ALL", "en_US.UTF-8"}, {"LANGUAGE", "de"}}});
  EXPECT_NE(result.out.find("usage:\n"), std::string::npos);
}

TEST(Program, GermanTextsReachAStreamThatKnowsAsciiAlone) {
  // The catalogue follows LC_CTYPE before LC_ALL, the standard library the other way round.
  const ProcessResult result =
      test::run({kProgram, {"missing.qdk"}, {{"LC_ALL", "C"}, {"LC_CTYPE", "de_DE.UTF-8"}}});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_EQ(result.out,
            "SCHWERWIEGENDER FEHLER: Unbekannter Fehler beim Einlesen der Eingabedatei\n"
            "Could not open file missing.qdk\n");
}

TEST(Program, NameOfALocaleNeedsNoEncoding) {
  const ProcessResult result =
      test::run({kProgram, {"missing.qdk"}, {{"LC_ALL", "C"}, {"LC_CTYPE", "de_DE"}}});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_EQ(result.out,
            "SCHWERWIEGENDER FEHLER: Unbekannter Fehler beim Einlesen der Eingabedatei\n"
            "Could not open file missing.qdk\n");
}

TEST(Program, BytesOfItsPathThatAreNoCharactersAloneAreShownAsQuestionMarks) {
  const TemporaryFolder folder;
  const std::string program = folder.file("lamcraft \xc3\xbc");
  const std::string shown = folder.file("lamcraft ??");
  std::filesystem::create_symlink(kProgram, program);
  for (const char* locale : {"C", "en_US.UTF-8"}) {
    const ProcessResult result = test::run({program, {}, {{"LC_ALL", locale}}});
    EXPECT_EQ(result.out,
              "Lamcraft " LAMCRAFT_VERSION "\n\nusage:\n" + shown +
                  " [INPUT FILE] [RESULTSDIR-OPTIONAL]\n");
  }
}

TEST(Program, LocaleThatIsNotInstalledEndsTheRunAsASuccess) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{}, std::vector<std::string>{"missing.qdk"}}) {
    for (const char* locale : {"xx_XX.UTF-8", "xx_XX", "de_XX"}) {
      const ProcessResult result = run(arguments, locale);
      EXPECT_EQ(result.exitCode, 0);
      EXPECT_EQ(result.out, "FATAL ERROR: Unable to setup localization: \nbad locale name\n")
          << locale;
    }
  }
}

TEST(Program, ReportsADeckThatCannotBeOpened) {
  for (const char* locale : {"C", "en_US.UTF-8"}) {
    const ProcessResult result = run({"missing.qdk", "results", "more", "arguments"}, locale);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.out,
              "FATAL ERROR: An unknown error occurred in Parse\n"
              "Could not open file missing.qdk\n");
  }
}

TEST(Program, FindsItsLibraryBesideItselfAndInTheLibFolder) {
  namespace fs = std::filesystem;
  for (const char* place : {"bin", "lib"}) {
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "bin");
    fs::create_directory(folder.path() / "lib");
    const fs::path library = LAMCRAFT_LIBRARY;
    const std::string program = folder.file("bin/lamcraft");
    fs::copy_file(kProgram, program);
    EXPECT_NE(test::run({program, {}}).exitCode, 0) << "no library yet";
    fs::copy_file(library, folder.path() / place / library.filename());
    EXPECT_EQ(test::run({program, {}}).exitCode, 0) << place;
  }
}

}  // namespace
}  // namespace lamcraft
