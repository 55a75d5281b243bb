// SPDX-License-Identifier: BSD-3-Clause
#include "findings/Finding.h"

#include <algorithm>

namespace lamkit {

const char* nameOf(const Severity severity) noexcept {
  switch (severity) {
    case Severity::error:
      return "error";
    case Severity::warning:
      return "warning";
    case Severity::note:
      break;
  }
  return "note";
}

Severity worst(const std::vector<Finding>& findings) noexcept {
  Severity result = Severity::note;
  for (const Finding& finding : findings) {
    result = std::max(result, finding.severity);
  }
  return result;
}

const char* verdictOf(const std::vector<Finding>& findings) noexcept {
  switch (worst(findings)) {
    case Severity::error:
      return "bad";
    case Severity::warning:
      return "doubtful";
    case Severity::note:
      break;
  }
  return "good";
}

ExitCode exitCodeOf(const std::vector<Finding>& findings) noexcept {
  switch (worst(findings)) {
    case Severity::error:
      return ExitCode::bad;
    case Severity::warning:
      return ExitCode::doubtful;
    case Severity::note:
      break;
  }
  return ExitCode::good;
}

}  // namespace lamkit
