// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_TESTS_SUPPORT_SUBCOMMAND_H
#define LAMKIT_TESTS_SUPPORT_SUBCOMMAND_H

#include <CLI/CLI.hpp>
#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "command/Context.h"

namespace lamkit::test {

/// What a subcommand ended with, and what it wrote.
struct SubcommandResult {
  ExitCode code;
  std::string out;
  std::string err;
};

/// Runs one subcommand, which `add` adds, as the program does; `arguments` are those behind its
/// name.
inline SubcommandResult runSubcommand(void (*add)(CLI::App&, Context&),
                                      const std::string& name,
                                      std::vector<std::string> arguments) {
  std::ostringstream out;
  std::ostringstream err;
  Context context{out, err};
  CLI::App program;
  program.allow_windows_style_options(false);  // as the program does, for which "/a/b" is a path
  add(program, context);
  arguments.insert(arguments.begin(), name);
  std::reverse(arguments.begin(), arguments.end());  // as CLI::App::parse takes them
  try {
    program.parse(arguments);
  } catch (const Failure& failure) {
    context.fail(failure);
  } catch (const CLI::ParseError&) {
    context.raise(ExitCode::failed);
  }
  return {context.exitCode, out.str(), err.str()};
}

}  // namespace lamkit::test

#endif
