// SPDX-License-Identifier: BSD-3-Clause
#include "check/TextRules.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>

#include "abqinp/DeckLine.h"
#include "abqinp/Keyword.h"

namespace lamkit {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// A character that word processors and web pages put where a deck needs another one.
struct OddCharacter {
  std::string_view bytes;  ///< in UTF-8, or one byte of code page 1252
  const char* name;
  const char* instead;
};

constexpr std::array<OddCharacter, 18> kOddCharacters{{
    {"\xC2\xA0", "no-break space", "a space"},
    {"\xE2\x80\xAF", "narrow no-break space", "a space"},
    {"\xE2\x80\x87", "figure space", "a space"},
    {"\xE2\x80\x89", "thin space", "a space"},
    {"\xE2\x80\x83", "em space", "a space"},
    {"\xE2\x80\x8B", "zero-width space", "nothing"},
    {"\xE3\x80\x80", "ideographic space", "a space"},
    {"\xE2\x88\x92", "Unicode minus", "\"-\""},
    {"\xE2\x80\x90", "Unicode hyphen", "\"-\""},
    {"\xE2\x80\x93", "en dash", "\"-\""},
    {"\xE2\x80\x94", "em dash", "\"-\""},
    {"\xE2\x80\x9C", "curly quote", "a straight quote"},
    {"\xE2\x80\x9D", "curly quote", "a straight quote"},
    {"\xE2\x80\x98", "curly quote", "a straight quote"},
    {"\xE2\x80\x99", "curly quote", "a straight quote"},
    {"\xEF\xBC\x8C", "full-width comma", "\",\""},
    {"\xEF\xBC\x8A", "full-width asterisk", "\"*\""},
    {"\xC3\x97", "multiplication sign", "\"e\" and the power of ten"},
}};

Finding finding(const std::size_t line,
                const std::size_t column,
                const char* const rule,
                const Severity severity,
                std::string message) {
  Finding result;
  result.line = line;
  result.column = column;
  result.rule = rule;
  result.severity = severity;
  result.message = std::move(message);
  return result;
}

std::string hexadecimal(const unsigned char byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  return {'0', 'x', kDigits[byte / 16], kDigits[byte % 16]};
}

bool isControl(const char character) {
  const auto byte = static_cast<unsigned char>(character);
  const bool isSpace = (byte >= '\t' && byte <= '\r');
  return (byte < 0x20 && !isSpace) || byte == 0x7f;
}

/// The first odd character of a line, as a finding without its line.
std::vector<Finding> oddCharacterOf(const std::string_view line, const std::size_t number) {
  for (std::size_t column = 0; column < line.size(); ++column) {
    if (line[column] >= ' ' && line[column] <= '~') {
      continue;
    }
    if (isControl(line[column])) {
      const auto byte = static_cast<unsigned char>(line[column]);
      return {finding(number,
                      column + 1,
                      "odd-character",
                      Severity::warning,
                      "this line holds the control byte " + hexadecimal(byte) + ": remove it")};
    }
    for (const OddCharacter& odd : kOddCharacters) {
      if (line.compare(column, odd.bytes.size(), odd.bytes) == 0) {
        return {finding(number,
                        column + 1,
                        "odd-character",
                        Severity::warning,
                        "this line holds a " + std::string(odd.name) + ": write " + odd.instead)};
      }
    }
  }
  return {};
}

void checkCharacters(std::string_view deck, std::vector<Finding>& findings) {
  std::size_t number = 0;
  while (!deck.empty()) {
    const std::size_t end = std::min(deck.find('\n'), deck.size());
    const std::string_view line = deck.substr(0, end);
    ++number;
    if (!abqinp::isCommentLine(line)) {
      for (Finding& odd : oddCharacterOf(line, number)) {
        findings.push_back(std::move(odd));
      }
    }
    deck.remove_prefix(std::min(end + 1, deck.size()));
  }
}

/// Where a carriage return stands that no line feed follows; npos when there is none.
std::size_t loneCarriageReturn(const std::string_view deck) {
  for (std::size_t at = deck.find('\r'); at != std::string_view::npos;
       at = deck.find('\r', at + 1)) {
    if (at + 1 < deck.size() && deck[at + 1] != '\n' && deck[at + 1] != '\r') {
      return at;
    }
  }
  return std::string_view::npos;
}

void checkLineEnds(const std::string_view deck, std::vector<Finding>& findings) {
  const std::size_t at = loneCarriageReturn(deck);
  if (at == std::string_view::npos) {
    return;
  }
  const std::string_view before = deck.substr(0, at);
  const auto line = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1;
  const std::size_t feed = before.rfind('\n');
  const std::size_t column = feed == std::string_view::npos ? at + 1 : at - feed;
  findings.push_back(finding(line,
                             column,
                             "cr-only",
                             Severity::error,
                             "a carriage return without a line feed ends no line, so that what "
                             "follows is read as one with it: save the deck with LF or CR LF"));
}

bool isBlank(const std::string_view text) {
  return text.find_first_not_of(" \t\r\v\f") == std::string_view::npos;
}

/// Walks over lines, and knows the keyword that each belongs to.
class LineCheck {
 public:
  void check(const std::string_view line) {
    ++number_;
    if (abqinp::isCommentLine(line)) {
      checkComment(line);
    } else if (abqinp::isKeywordLine(line)) {
      checkKeyword(line);
    } else if (keyword_.empty() && !isBlank(line) && !hasOrphan_) {
      hasOrphan_ = true;
      add(1, "missing-parent", "data before the first keyword are dropped: remove them");
    }
  }

  std::vector<Finding> findings;

 private:
  void add(const std::size_t column, const char* const rule, const std::string& message) {
    findings.push_back(finding(number_, column, rule, Severity::warning, message));
    findings.back().keyword = keyword_;
  }

  void checkComment(const std::string_view line) {
    const std::size_t star = line.find('*');
    if (!isBlank(line.substr(0, star))) {
      add(star + 1,
          "trailing-comment",
          "a comment takes its whole line" +
              (keyword_.empty() ? std::string() : ", so that this one is lost for " + keyword_) +
              ": put the comment on a line of its own");
    }
  }

  void checkKeyword(const std::string_view line) {
    const std::string name = abqinp::Keyword::fromLine(line).name();
    if (name.empty()) {
      add(line.find('*') + 1, "unknown-keyword", "a \"*\" without a name is no keyword: remove it");
    } else {
      keyword_ = name;
    }
  }

  std::size_t number_ = 0;
  std::string keyword_;
  bool hasOrphan_ = false;
};

}  // namespace

std::vector<Finding> checkLines(std::string_view deck) {
  LineCheck lines;
  while (!deck.empty()) {
    const std::size_t end = std::min(deck.find('\n'), deck.size());
    lines.check(deck.substr(0, end));
    deck.remove_prefix(std::min(end + 1, deck.size()));
  }
  return std::move(lines.findings);
}

bool isTwoByteText(const std::string_view deck) noexcept {
  if (deck.substr(0, 2) == "\xFF\xFE" || deck.substr(0, 2) == "\xFE\xFF") {
    return true;
  }
  constexpr std::size_t kSample = 400;
  const std::string_view start = deck.substr(0, kSample);
  const auto zeros = static_cast<std::size_t>(std::count(start.begin(), start.end(), '\0'));
  return start.size() >= 4 && 3 * zeros >= start.size();
}

std::vector<Finding> checkText(const std::string_view deck) {
  std::vector<Finding> findings;
  if (isTwoByteText(deck)) {
    findings.push_back(
        finding(1,
                1,
                "utf-16",
                Severity::error,
                "the deck is saved as two-byte text (UTF-16), which holds no keyword "
                "for the program: save it as UTF-8 or ASCII"));
    return findings;
  }
  if (deck.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
    findings.push_back(
        finding(1,
                1,
                "byte-order-mark",
                Severity::error,
                "a byte-order mark stands before the first line, which is no keyword "
                "line with it: save the deck as UTF-8 without one"));
  }
  checkLineEnds(deck, findings);
  checkCharacters(deck, findings);
  return findings;
}

}  // namespace lamkit
