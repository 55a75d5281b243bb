// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_FINDINGS_FINDING_H
#define LAMKIT_FINDINGS_FINDING_H

#include <cstddef>
#include <string>
#include <vector>

namespace lamkit {

/// How much a finding weighs, from light to heavy.
enum class Severity {
  note,     ///< worth knowing
  warning,  ///< an engineer would stop here
  error     ///< the program refuses it, or what it writes is no material
};

/// "note", "warning", "error".
[[nodiscard]] const char* nameOf(Severity severity) noexcept;

/// What is to be said about one place of a deck or of a material folder.
struct Finding {
  std::string file;             ///< the deck, or the folder
  std::size_t line = 0;         ///< in the deck, from 1; 0 where there is no place
  std::size_t column = 0;       ///< in bytes from 1; 0 where there is no place
  std::string keyword;          ///< without its "*"; empty where there is none
  std::size_t environment = 0;  ///< from 1; 0 where it is about the whole material
  std::string rule;             ///< a stable name, such as "unit-slip"
  Severity severity = Severity::note;
  std::string value;     ///< what was read, with its unit; may be empty
  std::string expected;  ///< what would be usual, with its unit; may be empty
  std::string message;   ///< one sentence that says what to do
};

/// All that was found in one deck or folder.
struct FileFindings {
  std::string file;
  std::vector<Finding> findings;
};

/// The weight of the heaviest finding; a note when there is none.
[[nodiscard]] Severity worst(const std::vector<Finding>& findings) noexcept;

/// "good" without warnings, "doubtful" with, "bad" with errors.
[[nodiscard]] const char* verdictOf(const std::vector<Finding>& findings) noexcept;

/// The exit codes of every subcommand.
enum class ExitCode {
  good = 0,      ///< nothing worse than a note
  doubtful = 1,  ///< a warning
  bad = 2,       ///< an error
  failed = 3     ///< could not do its work; a message is on the standard error stream
};

/// The exit code of a file with these findings.
[[nodiscard]] ExitCode exitCodeOf(const std::vector<Finding>& findings) noexcept;

}  // namespace lamkit

#endif
