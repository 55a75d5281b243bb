// SPDX-License-Identifier: BSD-3-Clause
#include "driver/FailureReports.h"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "abqinp/InputFileException.h"
#include "model/LamcraftException.h"
#include "support/ConsoleCapture.h"

namespace lamcraft::driver {
namespace {

using test::ConsoleCapture;

template <typename Exception>
Phase throwing(const Exception& exception) {
  return [exception] { throw exception; };
}

TEST(FailureReports, SuccessPrintsNothing) {
  const ConsoleCapture console;
  EXPECT_TRUE(runLocalization([] {}));
  EXPECT_EQ(runParse([] {}), ExitCode::success);
  EXPECT_EQ(runCreate([] {}), ExitCode::success);
  EXPECT_EQ(console.shown(), "");
}

TEST(FailureReports, LocalizationFailureIsReported) {
  const ConsoleCapture console;
  EXPECT_FALSE(runLocalization(throwing(std::runtime_error("bad locale name"))));
  EXPECT_EQ(console.shown(), "FATAL ERROR: Unable to setup localization: \nbad locale name\n");
}

TEST(FailureReports, EveryFailureToReadCountsAsUnknown) {
  for (const Phase& phase : {throwing(std::runtime_error("text")),
                             throwing(LamcraftException("text")),
                             throwing(std::out_of_range("text"))}) {
    const ConsoleCapture console;
    EXPECT_EQ(runParse(phase), ExitCode::failed);
    EXPECT_EQ(console.shown(), "FATAL ERROR: An unknown error occurred in Parse\ntext\n");
  }
}

TEST(FailureReports, MalformedDeckIsReported) {
  const ConsoleCapture console;
  EXPECT_EQ(runCreate(throwing(abqinp::InputFileException::misplacedKeyword("VARIATION"))),
            ExitCode::malformedInput);
  EXPECT_EQ(console.shown(), "FATAL ERROR: Malformed input file: \nMisplaced keyword: VARIATION\n");
}

TEST(FailureReports, SolveFailureIsReported) {
  const ConsoleCapture console;
  EXPECT_EQ(runCreate(throwing(LamcraftException("Invalid Material TYPE specified."))),
            ExitCode::failed);
  EXPECT_EQ(console.shown(),
            "FATAL ERROR: An error occured during solve: \nInvalid Material TYPE specified.\n");
}

TEST(FailureReports, AnyOtherFailureToCreateIsReported) {
  const ConsoleCapture console;
  EXPECT_EQ(runCreate(throwing(std::invalid_argument("word"))), ExitCode::unknownError);
  EXPECT_EQ(console.shown(), "FATAL ERROR: An unknown error occurred in Create\nword\n");
}

TEST(FailureReports, ExceptionsThatAreNotStandardPass) {
  EXPECT_THROW(runLocalization(throwing(1)), int);
  EXPECT_THROW(runParse(throwing(1)), int);
  EXPECT_THROW(runCreate(throwing(1)), int);
}

TEST(FailureReports, ExitCodesAreThoseThatScriptsKnow) {
  EXPECT_EQ(static_cast<int>(ExitCode::success), 0);
  EXPECT_EQ(static_cast<int>(ExitCode::malformedInput), 1);
  EXPECT_EQ(static_cast<int>(ExitCode::failed), 2);
  EXPECT_EQ(static_cast<int>(ExitCode::unknownError), 3);
}

}  // namespace
}  // namespace lamcraft::driver
