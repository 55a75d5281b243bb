// SPDX-License-Identifier: BSD-3-Clause
#include "solve/SolveCommand.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "command/Options.h"
#include "solve/DeckList.h"
#include "solve/DeckRun.h"
#include "solve/Progress.h"
#include "system/Folders.h"

namespace lamkit {

namespace {

/// The command line.
struct SolveOptions {
  std::vector<std::string> decks;
  std::string list;
  std::string results;
  Chunk chunk;
  std::optional<double> timeout;
  bool force = false;
  bool resume = false;
};

#ifdef _WIN32
constexpr const char* kProgram = "lamcraft.exe";
#else
constexpr const char* kProgram = "lamcraft";
#endif

/// lamcraft, which is installed beside this program.
std::filesystem::path findProgram() {
  const std::filesystem::path program = ownExecutable().parent_path() / kProgram;
  if (!std::filesystem::exists(program)) {
    throw Failure(program.string(), "there is no lamcraft beside lamkit");
  }
  return program;
}

void addList(const std::string& path, std::vector<std::string>& decks) {
  std::ifstream file;
  if (path != "-") {
    file.open(path, std::ios::binary);
    if (!file) {
      throw Failure(path, "cannot be opened");
    }
  }
  for (std::string& deck : readDeckList(path == "-" ? std::cin : file)) {
    decks.push_back(std::move(deck));
  }
}

SolveSettings settingsOf(const SolveOptions& options) {
  SolveSettings settings;
  settings.results = options.results;
  settings.program = findProgram();
  settings.versions = {LAMKIT_VERSION, LAMKIT_VERSION};
  if (options.timeout) {
    settings.timeout = std::chrono::duration<double>(*options.timeout);
  }
  settings.force = options.force;
  settings.resume = options.resume;
  return settings;
}

void makeResults(const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (!std::filesystem::is_directory(folder)) {
    throw Failure(folder.string(), "cannot be made: " + error.message());
  }
}

void solveAll(SolveOptions options, Context& context) {
  if (!options.list.empty()) {
    addList(options.list, options.decks);
  } else if (options.decks.empty()) {
    throw CLI::RequiredError("DECK or --list");
  }
  const std::vector<DeckJob> jobs = shareOf(jobsOf(options.decks), options.chunk);
  const SolveSettings settings = settingsOf(options);
  makeResults(settings.results);

  Progress progress(context, jobs.size());
  std::vector<FileFindings> results;
  for (const DeckJob& job : jobs) {
    try {
      DeckOutcome outcome = runDeck(job, settings);
      progress.done(job.name, outcome);
      results.push_back(std::move(outcome.record.result));
    } catch (const Failure& failure) {
      progress.failed();
      context.fail(failure);
    }
  }
  progress.finish();
  context.report(results);
}

}  // namespace

void addSolve(CLI::App& program, Context& context) {
  CLI::App& command =
      *program.add_subcommand("solve", "Check decks, run lamcraft on them, judge what came out");
  const auto options = std::make_shared<SolveOptions>();
  command.add_option("DECK", options->decks, "Decks to solve");
  command.add_option(
      "--list", options->list, "File that names decks, one a line; - for standard input");
  command.add_option("--results", options->results, "Folder that gets a folder for each deck")
      ->required();
  command.add_flag("--resume", options->resume, "Leave out decks whose folder is there already");
  command.add_flag("--force", options->force, "Run lamcraft whatever check says");
  command.add_option("--timeout", options->timeout, "End lamcraft after so many seconds")
      ->check(CLI::PositiveNumber);
  command
      .add_option_function<std::string>(
          "--chunk",
          [options](const std::string& text) { options->chunk = *chunkFrom(text); },
          "Take every N-th deck, from the I-th on")
      ->type_name("I/N")
      ->check([](const std::string& text) {
        return chunkFrom(text) ? "" : "\"" + text + "\" is not I/N with I from 1 to N";
      });
  addFindingOptions(command, context);
  command.callback([options, &context] { solveAll(*options, context); });
}

}  // namespace lamkit
