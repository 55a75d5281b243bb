// SPDX-License-Identifier: BSD-3-Clause
#include "command/Context.h"

#include <algorithm>

#include "findings/JsonFindings.h"
#include "findings/TextFindings.h"

namespace lamkit {

void Context::fail(const Failure& failure) {
  err << "lamkit: " << failure.what() << '\n';
  raise(ExitCode::failed);
}

void Context::raise(const ExitCode code) {
  exitCode = std::max(exitCode, code);
}

void Context::report(const std::vector<FileFindings>& files) {
  if (format == Format::json) {
    out << textOf(jsonOf(files));
  }
  for (const FileFindings& file : files) {
    raise(exitCodeOf(file.findings));
    if (format == Format::text) {
      writeText(out, file.findings, color);
    }
  }
  if (!quiet && format == Format::text) {
    err << countsOf(files) << '\n';
  }
}

}  // namespace lamkit
