// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_GOLDEN_GOLDENFILES_H
#define LAMCRAFT_TESTS_GOLDEN_GOLDENFILES_H

#include <filesystem>
#include <map>
#include <string>

#include "support/ProcessRun.h"

namespace lamcraft::test {

/// What a run leaves behind, by file name: the material folder, and "console.txt".
using GoldenFiles = std::map<std::string, std::string>;

/// Runs the program on a deck, which it sees as deck.qdk in a fresh folder with the results folder
/// "out". `process` gives the program and its environment. With `callsVariable`, that environment
/// variable tells the library where to write its calls, and they are among the files as
/// "calls.txt". The standard error stream must stay empty.
GoldenFiles filesOfRun(const std::filesystem::path& deck,
                       ProcessRun process,
                       const std::string& callsVariable = {});

/// The files of a folder; none when there is no such folder.
GoldenFiles filesOf(const std::filesystem::path& folder);

/// Whether the expected files are to be written anew: LAMCRAFT_APPROVE is set.
bool isApproving();

/// Writes the expected files anew.
void approve(const std::filesystem::path& folder, const GoldenFiles& files);

/// Fails the test for each file that is missing or not expected.
void expectSameNames(const GoldenFiles& expected, const GoldenFiles& actual);

/// The first line that differs, with its number: whole files would bury it.
std::string firstDifference(const std::string& expected, const std::string& actual);

}  // namespace lamcraft::test

#endif
