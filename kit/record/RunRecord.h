// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_RECORD_RUNRECORD_H
#define LAMKIT_RECORD_RUNRECORD_H

#include <optional>
#include <string>

#include "findings/Finding.h"

namespace lamkit {

/// The file of a solved folder that says how the run went; docs/run.schema.json is its schema.
inline constexpr const char* kRunRecord = "run.json";
/// What the program said, beside it.
inline constexpr const char* kConsole = "console.txt";

/// The programs that made a folder.
struct Versions {
  std::string lamcraft;
  std::string lamkit;

  bool operator==(const Versions& other) const {
    return lamcraft == other.lamcraft && lamkit == other.lamkit;
  }
};

/// How the run of one deck went.
struct RunRecord {
  std::string deck;    ///< path, as it was given
  std::string sha256;  ///< of the deck's bytes, 64 hexadecimal digits
  Versions versions;
  std::optional<int> exitCode;  ///< empty when lamcraft did not run, or not to its end
  double seconds = 0.0;         ///< that lamcraft ran
  FileFindings result;          ///< about the folder: those of check, of the run, of verdict
};

/// The record as the text of run.json.
[[nodiscard]] std::string textOf(const RunRecord& record);

/// The record in a folder; nothing where there is none, or none that this version reads.
[[nodiscard]] std::optional<RunRecord> readRunRecord(const std::string& folder);

}  // namespace lamkit

#endif
