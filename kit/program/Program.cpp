// SPDX-License-Identifier: BSD-3-Clause
#include "program/Program.h"

#include <CLI/CLI.hpp>
#include <array>
#include <exception>

#include "card/CardCommand.h"
#include "check/CheckCommand.h"
#include "command/Context.h"
#include "report/ReportCommand.h"
#include "solve/SolveCommand.h"
#include "table/TableCommand.h"
#include "verdict/VerdictCommand.h"

namespace lamkit {

namespace {

using AddCommand = void (*)(CLI::App& program, Context& context);

/// Every subcommand, in the order of the help. Each adds itself to the program, with a callback
/// that does its work in the context.
constexpr std::array<AddCommand, 6> kCommands{
    addCheck, addVerdict, addSolve, addTable, addReport, addCard};

/// What the command line lacks, or the help or the version that it asks for.
ExitCode answer(const CLI::App& program, const CLI::ParseError& error, Context& context) {
  const bool isHelp = program.exit(error, context.out, context.err) == 0;
  return isHelp ? ExitCode::good : ExitCode::failed;
}

}  // namespace

ExitCode run(const int count, const char* const* arguments, std::ostream& out, std::ostream& err) {
  Context context{out, err};
  CLI::App program("Checks decks of lamcraft before a run, and what the run made of them after it.",
                   "lamkit");
  program.set_version_flag("--version", "lamkit " LAMKIT_VERSION);
  program.require_subcommand(1);
  program.allow_windows_style_options(false);  // "/a/b" is a path
  for (const AddCommand add : kCommands) {
    add(program, context);
  }
  try {
    program.parse(count, arguments);
  } catch (const CLI::ParseError& error) {
    return answer(program, error, context);
  } catch (const Failure& failure) {
    context.fail(failure);
  } catch (const std::exception& error) {
    err << "lamkit: " << error.what() << '\n';
    return ExitCode::failed;
  }
  out.flush();
  if (!out) {
    context.fail(Failure("standard output", "cannot be written"));
  }
  return context.exitCode;
}

}  // namespace lamkit
