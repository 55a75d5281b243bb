// SPDX-License-Identifier: BSD-3-Clause
#include "console/Output.h"

#include <iostream>
#include <set>
#include <sstream>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "console/Messages.h"
#include "support/ConsoleCapture.h"

namespace lamcraft::console {
namespace {

TEST(Output, WideAndNarrowTextsAppearInTheOrderOfTheCalls) {
  test::ConsoleCapture console;
  Output().message(kTargetExists).text("/m/mdata.xml").wide(L" (").number(12).wide(L")").endLine();
  EXPECT_EQ(console.shown(), "FATAL ERROR: The target mdata already exists: /m/mdata.xml (12)\n");
}

TEST(Output, OrderHoldsFromOneOutputToTheNext) {
  test::ConsoleCapture console;
  Output().message(kSolvingUnidirectional);
  Output().text("AS4").endLine();
  Output().message(kTargetLamina).endLine();
  Output().text("E11 = 1\n").endLine();
  EXPECT_EQ(console.shown(),
            "Solving unidirectional composite:AS4\nTarget lamina properties:\nE11 = 1\n\n");
}

TEST(Output, EndOfLineFlushesTheStreamWrittenLast) {
  test::ConsoleCapture console;
  Output().text("a").endLine();
  EXPECT_EQ(console.shown(), "a\n");
  Output().wide(L"b").endLine().endLine();
  EXPECT_EQ(console.shown(), "a\nb\n\n");
}

TEST(Output, NumbersLeaveTheStreamAsItWas) {
  test::ConsoleCapture console;
  std::ostringstream before;
  before.copyfmt(std::cout);
  Output().number(1.0e-7).number(std::int64_t{5}).number(3U);
  EXPECT_EQ(std::cout.flags(), before.flags());
  EXPECT_EQ(std::cout.precision(), before.precision());
  EXPECT_EQ(std::cout.width(), 0);
  std::cout.flush();
  EXPECT_EQ(console.shown(), "1e-0753");
}

TEST(Output, WideNumbersAndWidenedTextsAreOnTheWideStream) {
  test::ConsoleCapture console;
  console.narrow().failOnce();
  Output().wideNumber(7).widened(",  Error: ").wideNumber(0.125).endLine();
  EXPECT_EQ(console.shown(), "7,  Error: 0.125\n");
}

TEST(Output, NarrowBytesStayAsTheyAre) {
  test::ConsoleCapture console;
  Output().text("\xc3\xbc\xff").endLine();
  EXPECT_EQ(console.shown(), "\xc3\xbc\xff\n");
}

TEST(Output, TextThatFailsDoesNotSilenceThoseAfterIt) {
  test::ConsoleCapture console;
  console.wide().failOnce();
  Output().wide(L"lost").endLine();
  Output().wide(L"wide").endLine();
  console.narrow().failOnce();
  Output().text("lost").endLine();
  Output().text("narrow").endLine();
  EXPECT_EQ(console.shown(), "\nwide\n\nnarrow\n");
}

TEST(Output, LinesOfTwoThreadsNeverMix) {
  test::ConsoleCapture console;
  constexpr int kLines = 500;
  const auto writeLines = [](const char* name) {
    for (int line = 0; line < kLines; ++line) {
      Output().message(kIteration).text(name).message(kError).number(0.5).endLine();
    }
  };
  std::thread monitor(writeLines, " monitor ");
  writeLines(" main ");
  monitor.join();

  std::multiset<std::string> lines;
  std::istringstream stream(console.shown());
  for (std::string line; std::getline(stream, line);) {
    lines.insert(line);
  }
  EXPECT_EQ(lines.size(), 2U * kLines);
  EXPECT_EQ(lines.count("Iteration: main Error:0.5"), std::size_t{kLines});
  EXPECT_EQ(lines.count("Iteration: monitor Error:0.5"), std::size_t{kLines});
}

}  // namespace
}  // namespace lamcraft::console
