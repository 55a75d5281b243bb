// SPDX-License-Identifier: BSD-3-Clause
// The deck reader on any bytes: it agrees with the plain reference reader in all that a walk shows
// and in what it writes, and it reads its own copy as the same deck.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <locale>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "abqinp/InputFile.h"
#include "abqinp/PlainDeck.h"
#include "fuzz/Files.h"
#include "fuzz/Target.h"
#include "support/TemporaryFolder.h"

namespace lamcraft::fuzz {
namespace {

/// What a stream reads at the start of a text, as the deck's numbers are defined; none when the
/// stream fails.
template <typename Number>
std::optional<Number> streamed(const std::string& text) {
  static std::istringstream stream = [] {
    std::istringstream fresh;
    fresh.imbue(std::locale::classic());
    return fresh;
  }();
  stream.clear();
  stream.str(text);
  Number number{};
  return stream >> number ? std::optional<Number>(number) : std::nullopt;
}

/// Compares the numbers at a value with those that a stream reads. A refused value costs a throw,
/// which takes longer than all else that an input does: only its first ones are tried.
class NumberCheck {
 public:
  void compare(const abqinp::Keyword& keyword,
               const std::size_t line,
               const std::size_t column,
               const std::string& text) {
    compare(text, -7.0, [&] { return keyword.doubleValue(line, column, -7.0); });
    compare(text, -7, [&] { return keyword.intValue(line, column, -7); });
  }

 private:
  template <typename Number, typename Read>
  void compare(const std::string& text, const Number otherwise, const Read& read) {
    const auto expected = text.empty() ? otherwise : streamed<Number>(text);
    if (!expected.has_value() && refusalsLeft_-- <= 0) {
      return;
    }
    require(numberOf<Number>(read, text) == expected, "a value is the number that a stream reads");
  }
  template <typename Number, typename Read>
  static std::optional<Number> numberOf(const Read& read, const std::string& text) {
    try {
      return read();
    } catch (const std::invalid_argument& error) {
      require(std::strcmp(error.what(), text.c_str()) == 0,
              "a refused number is named by its text");
      return std::nullopt;
    }
  }

  int refusalsLeft_ = 6;
};

void compareData(const abqinp::Keyword& keyword, const PlainBlock& plain, NumberCheck* numbers) {
  require(keyword.lineCount() == plain.lines.size(), "all data lines are there");
  require(!keyword.hasValue(plain.lines.size(), 0), "there is no line behind the last");
  for (std::size_t line = 0; line < plain.lines.size(); ++line) {
    const auto& values = plain.lines[line];
    for (std::size_t column = 0; column < values.size(); ++column) {
      require(keyword.hasValue(line, column), "a value of the deck is there");
      if (numbers != nullptr) {
        numbers->compare(keyword, line, column, values[column]);
      }
    }
    require(!keyword.hasValue(line, values.size()), "there is no value behind the last");
  }
}

void compareParameters(const abqinp::Keyword& keyword, const PlainBlock& plain) {
  for (const auto& [name, value] : plain.parameters) {
    require(keyword.hasParameter(name), "a parameter of the deck is there");
    require(keyword.parameter(name) == abqinp::Parameter(name, value), "a parameter has its value");
    const std::size_t quote = value.find('"');
    const std::string text = keyword.parameterText(name);
    require(quote == std::string::npos
                ? text == value
                : text == value.substr(quote + 1, value.find('"', quote + 1) - quote - 1),
            "a parameter's text is what stands in its quotes");
  }
  require(!keyword.hasParameter("no such, name"), "a parameter that is not there is not there");
}

void compareBlock(const abqinp::Keyword& keyword, const PlainBlock& plain, NumberCheck* numbers) {
  require(keyword.name() == plain.name, "a block has its name");
  require(keyword.comment() == plain.comment, "a comment has its text");
  require(keyword.isComment() == !plain.comment.empty(), "comments are known as such");
  require(keyword.toText(true) == plain.toText(true), "a block has its text as written");
  require(keyword.toText(false) == plain.toText(false), "a block has its sorted text");
  if (!keyword.isComment()) {
    compareParameters(keyword, plain);
    compareData(keyword, plain, numbers);
  }
}

/// One walk over the deck; `numbers` checks those of its values, if given: they follow from texts.
void compareWalk(abqinp::InputFile& deck,
                 const std::vector<PlainBlock>& plain,
                 NumberCheck* numbers) {
  require(deck.countKeywords() == plain.size(), "all blocks are there");
  require(deck.currentKeyword() == nullptr, "a walk starts before the first block");
  for (const PlainBlock& block : plain) {
    require(deck.nextKeyword(), "a walk reaches every block");
    compareBlock(*deck.currentKeyword(), block, numbers);
  }
  require(!deck.nextKeyword() && deck.currentKeyword() == nullptr, "a walk ends behind the last");
}

void compareCounts(const abqinp::InputFile& deck, const std::vector<PlainBlock>& plain) {
  for (std::size_t i = 0; i < std::min<std::size_t>(plain.size(), 8); ++i) {
    const std::string& name = plain[i].name;
    const auto count = std::count_if(
        plain.begin(), plain.end(), [&](const PlainBlock& block) { return block.name == name; });
    require(deck.countKeywords(name) == static_cast<std::size_t>(count),
            "the blocks of a name are counted");
  }
}

std::string textOf(const std::vector<PlainBlock>& plain, const bool inWrittenOrder) {
  std::string text;
  for (const PlainBlock& block : plain) {
    text += block.toText(inWrittenOrder);
  }
  return text;
}

bool hasCommentLine(const std::string& text) {
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t star = line.find('*');
    if (star != std::string::npos && line.compare(star, 2, "**") == 0) {
      return true;
    }
  }
  return false;
}

/// Whether a block's text reads as that block again. It does not when a line of it looks like a
/// comment ("* *KW", or the data "A,* *B"), when a parameter is a bare "=", and when a comment ends
/// with one return more than a line has.
bool survivesACopy(const PlainBlock& block) {
  if (!block.comment.empty()) {
    return block.comment.back() != '\r';
  }
  const std::string text = block.toText(true);
  const auto nameless = block.parameters.find("");
  return !hasCommentLine(text) && (nameless == block.parameters.end() || !nameless->second.empty());
}

void run(const std::string& text) {
  static const test::TemporaryFolder folder;
  static const std::string original = folder.file("deck.qdk");
  static const std::string copy = folder.file("copy.qdk");

  const std::vector<PlainBlock> plain = plainBlocks(text);
  File(original, "wb").write(text);
  abqinp::InputFile deck;
  deck.read(original);
  NumberCheck numbers;
  compareWalk(deck, plain, &numbers);
  deck.restart();
  compareWalk(deck, plain, nullptr);
  compareCounts(deck, plain);

  deck.write(copy, false);
  require(File(copy, "rb").content() == textOf(plain, false), "the sorted copy holds every block");
  deck.write(copy, true);
  const std::string written = textOf(plain, true);
  require(File(copy, "rb").content() == written, "the copy as written holds every block");

  deck.read(copy);
  const std::vector<PlainBlock> again = plainBlocks(written);
  compareWalk(deck, again, nullptr);
  // What stands in quotes keeps its blanks and letters, but its commas get a blank more.
  const bool isQuoted = text.find('"') != std::string::npos;
  if (!isQuoted && std::all_of(plain.begin(), plain.end(), survivesACopy)) {
    require(textOf(again, true) == written, "the copy reads as the same deck");
  }
}

}  // namespace
}  // namespace lamcraft::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* const data, const std::size_t size) {
  lamcraft::fuzz::run(std::string(data, data + size));
  return 0;
}
