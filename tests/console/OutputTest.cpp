#include "console/Output.h"

#include <iostream>
#include <set>
#include <sstream>
#include <streambuf>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "console/Messages.h"

namespace lamcraft::console {
namespace {

/// A buffer that, like the standard output's, shows its text when it is flushed and not before.
template <typename Char>
class BufferedSide : public std::basic_stringbuf<Char> {
 public:
  explicit BufferedSide(std::string& shown) : shown_(shown) {}

  /// Makes the next text fail, as a character does that has no bytes.
  void failOnce() { fails_ = true; }

 protected:
  // NOLINTBEGIN(readability-identifier-naming): the standard library's names
  int sync() override {
    for (const Char character : this->str()) shown_ += static_cast<char>(character);
    this->str({});
    return 0;
  }
  std::streamsize xsputn(const Char* text, std::streamsize size) override {
    if (!fails_) return std::basic_stringbuf<Char>::xsputn(text, size);
    fails_ = false;
    return 0;
  }
  // NOLINTEND(readability-identifier-naming)

 private:
  std::string& shown_;
  bool fails_ = false;
};

/// Stands in for a terminal behind the two standard output streams.
class ConsoleOutput : public testing::Test {
 protected:
  ConsoleOutput()
      : narrowBefore_(std::cout.rdbuf(&narrow_)), wideBefore_(std::wcout.rdbuf(&wide_)) {}
  ~ConsoleOutput() override {
    std::cout.rdbuf(narrowBefore_);
    std::wcout.rdbuf(wideBefore_);
  }

  std::string shown_;
  BufferedSide<char> narrow_{shown_};
  BufferedSide<wchar_t> wide_{shown_};

 private:
  std::streambuf* narrowBefore_;
  std::wstreambuf* wideBefore_;
};

TEST_F(ConsoleOutput, WideAndNarrowTextsAppearInTheOrderOfTheCalls) {
  Output().message(kTargetExists).text("/m/mdata.xml").wide(L" (").number(12).wide(L")").endLine();
  EXPECT_EQ(shown_, "FATAL ERROR: The target mdata already exists: /m/mdata.xml (12)\n");
}

TEST_F(ConsoleOutput, OrderHoldsFromOneOutputToTheNext) {
  Output().message(kSolvingUnidirectional);
  Output().text("AS4").endLine();
  Output().message(kTargetLamina).endLine();
  Output().text("E11 = 1\n").endLine();
  EXPECT_EQ(shown_, "Solving unidirectional composite:AS4\nTarget lamina properties:\nE11 = 1\n\n");
}

TEST_F(ConsoleOutput, EndOfLineFlushesTheStreamWrittenLast) {
  Output().text("a").endLine();
  EXPECT_EQ(shown_, "a\n");
  Output().wide(L"b").endLine().endLine();
  EXPECT_EQ(shown_, "a\nb\n\n");
}

TEST_F(ConsoleOutput, NumbersLeaveTheStreamAsItWas) {
  std::ostringstream before;
  before.copyfmt(std::cout);
  Output().number(1.0e-7).number(std::int64_t{5}).number(3U);
  EXPECT_EQ(std::cout.flags(), before.flags());
  EXPECT_EQ(std::cout.precision(), before.precision());
  EXPECT_EQ(std::cout.width(), 0);
  std::cout.flush();
  EXPECT_EQ(shown_, "1e-0753");
}

TEST_F(ConsoleOutput, NarrowBytesStayAsTheyAre) {
  Output().text("\xc3\xbc\xff").endLine();
  EXPECT_EQ(shown_, "\xc3\xbc\xff\n");
}

TEST_F(ConsoleOutput, TextThatFailsDoesNotSilenceThoseAfterIt) {
  wide_.failOnce();
  Output().wide(L"lost").endLine();
  Output().wide(L"wide").endLine();
  narrow_.failOnce();
  Output().text("lost").endLine();
  Output().text("narrow").endLine();
  EXPECT_EQ(shown_, "\nwide\n\nnarrow\n");
}

TEST_F(ConsoleOutput, LinesOfTwoThreadsNeverMix) {
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
  std::istringstream stream(shown_);
  for (std::string line; std::getline(stream, line);) lines.insert(line);
  EXPECT_EQ(lines.size(), 2U * kLines);
  EXPECT_EQ(lines.count("Iteration: main Error:0.5"), std::size_t{kLines});
  EXPECT_EQ(lines.count("Iteration: monitor Error:0.5"), std::size_t{kLines});
}

}  // namespace
}  // namespace lamcraft::console
