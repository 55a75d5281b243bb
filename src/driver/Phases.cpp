#include "driver/Phases.h"

#include <exception>

#include "console/Messages.h"
#include "console/Output.h"

namespace lamcraft::driver {

namespace {

struct Failure {
  const wchar_t* headline;
  ExitCode exitCode;
};

constexpr Failure kParseFailure{console::kUnknownParseError, ExitCode::failed};

ExitCode report(const Failure& failure, const std::exception& error) {
  console::Output().message(failure.headline).endLine().text(error.what()).endLine();
  return failure.exitCode;
}

}  // namespace

bool runLocalization(const Phase& setUp) {
  try {
    setUp();
    return true;
  } catch (const std::exception& error) {
    console::Output()
        .text("FATAL ERROR: Unable to setup localization: ")
        .endLine()
        .text(error.what())
        .endLine();
    return false;
  }
}

ExitCode runParse(const Phase& readDeck) {
  try {
    readDeck();
    return ExitCode::success;
  } catch (const std::exception& error) {
    return report(kParseFailure, error);
  }
}

}  // namespace lamcraft::driver
