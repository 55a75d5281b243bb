// SPDX-License-Identifier: BSD-3-Clause
#include "driver/FailureReports.h"

#include <exception>

#include "abqinp/InputFileException.h"
#include "console/Messages.h"
#include "console/Output.h"
#include "model/LamcraftException.h"

namespace lamcraft::driver {

namespace {

struct Failure {
  const wchar_t* headline;
  ExitCode exitCode;
};

constexpr Failure kParseFailure{console::kUnknownParseError, ExitCode::failed};
constexpr Failure kMalformedInput{console::kMalformedInputFile, ExitCode::malformedInput};
constexpr Failure kSolveFailure{console::kErrorDuringSolve, ExitCode::failed};
constexpr Failure kCreateFailure{console::kUnknownCreateError, ExitCode::unknownError};

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

ExitCode runCreate(const Phase& create) {
  try {
    create();
    return ExitCode::success;
  } catch (const abqinp::InputFileException& error) {
    return report(kMalformedInput, error);
  } catch (const LamcraftException& error) {
    return report(kSolveFailure, error);
  } catch (const std::exception& error) {
    return report(kCreateFailure, error);
  }
}

}  // namespace lamcraft::driver
