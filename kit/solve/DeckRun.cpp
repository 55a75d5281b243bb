// SPDX-License-Identifier: BSD-3-Clause
#include "solve/DeckRun.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "check/Check.h"
#include "command/Context.h"
#include "model/MaterialFiles.h"
#include "solve/RunRules.h"
#include "system/ChildProcess.h"
#include "system/Folders.h"
#include "system/Sha256.h"
#include "verdict/Verdict.h"

namespace lamkit {

namespace {

namespace fs = std::filesystem;

std::string contentOf(const std::string& path) {
  if (std::error_code error; !fs::is_regular_file(path, error)) {
    throw Failure(path, error ? "cannot be read: " + error.message() : "is no file");
  }
  std::ifstream in(path, std::ios::binary);
  std::string content{std::istreambuf_iterator<char>(in), {}};
  if (!in.is_open() || in.bad()) {
    throw Failure(path, "cannot be read");
  }
  return content;
}

/// The folders of a deck: the one that it gets, and the names of those that are not whole.
struct Places {
  fs::path folder;
  fs::path part;
  fs::path aside;
};

Places placesOf(const DeckJob& job, const SolveSettings& settings) {
  return {settings.results / job.name,
          settings.results / ("." + job.name + ".part"),
          settings.results / ("." + job.name + ".old")};
}

/// What a killed run has left.
void removeLeftovers(const Places& places) {
  fs::remove_all(places.part);
  fs::remove_all(places.aside);
}

void writeFile(const fs::path& path, const std::string& content) {
  std::ofstream out(path, std::ios::binary);
  out << content;
  out.close();
  if (!out) {
    throw Failure(path.string(), "cannot be written");
  }
}

void append(std::vector<Finding>& findings, std::vector<Finding> more) {
  std::move(more.begin(), more.end(), std::back_inserter(findings));
}

/// Runs lamcraft into the part; data stay there only if the run came to its end.
void runProgram(const DeckJob& job,
                const SolveSettings& settings,
                const Places& places,
                RunRecord& record) {
  const ChildEnd end = runChild({settings.program.string(),
                                 {job.deck, places.part.string()},
                                 (places.part / kConsole).string(),
                                 settings.timeout});
  record.exitCode = end.exitCode;
  record.seconds = end.time.count();
  const bool hasData = fs::exists(places.part / lamcraft::kMaterialData);
  append(record.result.findings,
         runFindings(end, contentOf((places.part / kConsole).string()), hasData));
  if (end.exitCode == 0 && hasData) {
    append(record.result.findings, judgeMaterial(places.part.string()).findings);
    return;
  }
  for (const char* const name :
       {lamcraft::kDeckCopy, lamcraft::kMaterialData, lamcraft::kFatigueData}) {
    fs::remove(places.part / name);
  }
}

RunRecord solve(const DeckJob& job,
                const SolveSettings& settings,
                const Places& places,
                std::string digest) {
  RunRecord record;
  record.deck = job.deck;
  record.sha256 = std::move(digest);
  record.versions = settings.versions;
  record.result = {places.folder.string(), checkDeck(job.deck, {false}).findings};
  fs::create_directory(places.part);
  writeFile(places.part / kConsole, "");
  if (settings.force || worst(record.result.findings) != Severity::error) {
    runProgram(job, settings, places, record);
  }
  for (Finding& finding : record.result.findings) {
    finding.file = places.folder.string();
  }
  writeFile(places.part / kRunRecord, textOf(record));
  replaceFolder(places.part, places.folder, places.aside);
  return record;
}

}  // namespace

DeckOutcome runDeck(const DeckJob& job, const SolveSettings& settings) {
  const Places places = placesOf(job, settings);
  try {
    std::string digest = sha256(contentOf(job.deck));
    removeLeftovers(places);
    if (settings.resume) {
      auto record = readRunRecord(places.folder.string());
      if (record && record->sha256 == digest && record->versions == settings.versions) {
        return {std::move(*record), true};
      }
    }
    return {solve(job, settings, places, std::move(digest)), false};
  } catch (const std::system_error& error) {  // of the file system or of a child
    throw Failure(job.deck, error.what());
  }
}

}  // namespace lamkit
