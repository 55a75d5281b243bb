// SPDX-License-Identifier: BSD-3-Clause
#include "solve/RunRules.h"

#include <algorithm>
#include <cstddef>
#include <sstream>

namespace lamkit {

namespace {

Finding error(const char* const rule,
              std::string value,
              std::string expected,
              std::string message) {
  Finding finding;
  finding.rule = rule;
  finding.severity = Severity::error;
  finding.value = std::move(value);
  finding.expected = std::move(expected);
  finding.message = std::move(message);
  return finding;
}

std::string secondsOf(const ChildEnd& end) {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text.precision(3);
  text << end.time.count() << " s";
  return text.str();
}

/// The lines from the first FATAL ERROR on, in one line; empty without one. A headline may end in
/// the line after it.
std::string fatalError(const std::string& console) {
  constexpr std::size_t kLongest = 300;
  const std::size_t start = console.find("FATAL ERROR");
  if (start == std::string::npos) {
    return {};
  }
  const std::size_t headline = std::min(console.find('\n', start), console.size());
  const std::size_t end = std::min(console.find('\n', headline + 1), console.size());
  std::string text = console.substr(start, std::min(end - start, kLongest));
  std::string line;
  for (const char character : text) {
    const bool isSpace = character == '\n' || character == '\r' || character == ' ';
    if (!isSpace) {
      line += character;
    } else if (!line.empty() && line.back() != ' ') {
      line += ' ';
    }
  }
  while (!line.empty() && line.back() == ' ') {
    line.pop_back();
  }
  return line;
}

}  // namespace

std::vector<Finding> runFindings(const ChildEnd& end,
                                 const std::string& console,
                                 const bool hasData) {
  if (!end.exitCode) {
    return {error("timeout",
                  secondsOf(end),
                  "",
                  "lamcraft was ended after " + secondsOf(end) +
                      ": give it more time, or look at console.txt for what it was doing")};
  }
  const std::string code = "exit code " + std::to_string(*end.exitCode);
  const std::string fatal = fatalError(console);
  if (!fatal.empty()) {
    return {
        error("failed", code, "no FATAL ERROR", "lamcraft says \"" + fatal + "\": mend the deck")};
  }
  if (*end.exitCode != 0) {
    return {error("failed",
                  code,
                  "exit code 0",
                  "lamcraft ended with " + code + ": console.txt shows how far it came")};
  }
  if (!hasData) {
    return {
        error("failed",
              "no mdata.xml",
              "mdata.xml",
              "lamcraft ended without an error and wrote no data: see whether the disk is full")};
  }
  return {};
}

}  // namespace lamkit
