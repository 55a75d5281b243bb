// SPDX-License-Identifier: BSD-3-Clause
#include "command/Options.h"

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace lamkit {

namespace {

bool isTerminal() {
#ifdef _WIN32
  return _isatty(_fileno(stdout)) != 0;
#else
  return isatty(STDOUT_FILENO) != 0;
#endif
}

bool wantsColor(const std::string& choice) {
  if (choice != "auto") {
    return choice == "always";
  }
  const char* const noColor = std::getenv("NO_COLOR");  // NOLINT(concurrency-mt-unsafe): one thread
  return isTerminal() && (noColor == nullptr || *noColor == '\0');
}

}  // namespace

bool isErrorTerminal() {
#ifdef _WIN32
  return _isatty(_fileno(stderr)) != 0;
#else
  return isatty(STDERR_FILENO) != 0;
#endif
}

void addFindingOptions(CLI::App& command, Context& context) {
  const std::map<std::string, Format> formats{{"text", Format::text}, {"json", Format::json}};
  command
      .add_option_function<std::string>(
          "--format",
          [&context, formats](const std::string& name) { context.format = formats.at(name); },
          "Findings as text, or as a JSON document")
      ->check(CLI::IsMember({"text", "json"}))
      ->default_str("text");
  context.color = wantsColor("auto");
  command
      .add_option_function<std::string>(
          "--color",
          [&context](const std::string& choice) { context.color = wantsColor(choice); },
          "Colours in text; auto: on a terminal, unless NO_COLOR is set")
      ->check(CLI::IsMember({"auto", "always", "never"}))
      ->default_str("auto");
  addQuietOption(command, context);
}

void addQuietOption(CLI::App& command, Context& context) {
  command.add_flag("-q,--quiet", context.quiet, "No progress and no summary");
}

}  // namespace lamkit
