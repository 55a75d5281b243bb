// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_COMMAND_CONTEXT_H
#define LAMKIT_COMMAND_CONTEXT_H

#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "findings/Finding.h"

namespace lamkit {

enum class Format { text, json };

/// What keeps a subcommand from its work: a file that is not there, that cannot be written. The
/// program says "lamkit: FILE: REASON" and ends with ExitCode::failed.
class Failure : public std::runtime_error {
 public:
  Failure(const std::string& file, const std::string& reason)
      : std::runtime_error(file + ": " + reason) {}
};

/// What a subcommand runs in: the options that all have, where its output goes, and the exit code
/// that it leaves.
struct Context {
  std::ostream& out;  ///< findings and other results
  std::ostream& err;  ///< messages, progress, summaries

  Format format = Format::text;
  bool color = false;  ///< whether text may have terminal colours; see Options.h
  bool quiet = false;  ///< no progress and no summary
  ExitCode exitCode = ExitCode::good;

  /// Says on the standard error stream why there is nothing about a file; the exit code becomes
  /// ExitCode::failed, and the caller goes on with the next file.
  void fail(const Failure& failure);

  /// Raises the exit code to `code`, if that is worse.
  void raise(ExitCode code);

  /// Writes the findings of all files to `out` in the format that was asked for, and a sentence
  /// that counts them to `err`; raises the exit code to that of the worst file.
  void report(const std::vector<FileFindings>& files);
};

}  // namespace lamkit

#endif
