// SPDX-License-Identifier: BSD-3-Clause
#include "findings/TextFindings.h"

#include <array>
#include <cstddef>
#include <string>

namespace lamkit {

namespace {

const char* colorOf(const Severity severity) {
  switch (severity) {
    case Severity::error:
      return "\x1b[1;31m";
    case Severity::warning:
      return "\x1b[1;35m";
    case Severity::note:
      break;
  }
  return "\x1b[1;36m";
}

std::string shown(std::string text) {
  for (char& character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte < 0x20 || byte == 0x7f) {
      character = '?';
    }
  }
  return text;
}

std::string counted(const std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

}  // namespace

void writeText(std::ostream& out, const Finding& finding, const bool color) {
  out << shown(finding.file) << ':';
  if (finding.line > 0) {
    out << finding.line << ':';
    if (finding.column > 0) {
      out << finding.column << ':';
    }
  }
  out << ' ';
  if (color) {
    out << colorOf(finding.severity) << nameOf(finding.severity) << ":\x1b[0m ";
  } else {
    out << nameOf(finding.severity) << ": ";
  }
  out << shown(finding.message) << " [" << finding.rule << "]\n";
}

void writeText(std::ostream& out, const std::vector<Finding>& findings, const bool color) {
  for (const Finding& finding : findings) {
    writeText(out, finding, color);
  }
}

std::string countsOf(const std::vector<FileFindings>& files) {
  std::array<std::size_t, 3> counts{};
  for (const FileFindings& file : files) {
    for (const Finding& finding : file.findings) {
      ++counts[static_cast<std::size_t>(finding.severity)];
    }
  }
  return counted(counts[static_cast<std::size_t>(Severity::error)], "error") + ", " +
         counted(counts[static_cast<std::size_t>(Severity::warning)], "warning") + ", " +
         counted(counts[static_cast<std::size_t>(Severity::note)], "note");
}

}  // namespace lamkit
