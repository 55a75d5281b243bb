#include <filesystem>
#include <map>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

// The messages in the code and the catalogues in locale/ are held together here: none may have a
// text that the other has not.

namespace lamcraft {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = fs::path(LAMCRAFT_TEST_DATA).parent_path();

using Entry = std::pair<std::string, std::string>;  // text, then translation or name

std::vector<std::smatch> matchesOf(const std::string& text, const std::regex& pattern) {
  return {std::sregex_iterator(text.begin(), text.end(), pattern), {}};
}

/// The quoted pieces of `literals`, joined.
std::string unquoted(const std::string& literals) {
  static const std::regex kPiece(R"re("((?:[^"\\]|\\.)*)")re");
  std::string text;
  for (const auto& piece : matchesOf(literals, kPiece)) text += piece[1];
  return text;
}

/// Text and name of every message in the code.
std::vector<Entry> messages() {
  static const std::regex kConstant(R"re((k\w+) =\s*((?:L"(?:[^"\\]|\\.)*"\s*)+);)re");
  const std::string header = test::contentOf(kRoot / "src/console/Messages.h");
  std::vector<Entry> found;
  for (const auto& constant : matchesOf(header, kConstant)) {
    found.emplace_back(unquoted(constant[2]), constant[1]);
  }
  return found;
}

std::vector<std::string> textsOf(const std::vector<Entry>& entries) {
  std::vector<std::string> texts;
  texts.reserve(entries.size());
  for (const auto& entry : entries) texts.push_back(entry.first);
  return texts;
}

/// The entries of a catalogue in its order, without the header.
std::vector<Entry> catalogue(const fs::path& file) {
  static const std::regex kEntry(
      R"re(msgid ((?:"(?:[^"\\]|\\.)*"\s*)+)msgstr ((?:"(?:[^"\\]|\\.)*"\s*)+))re");
  const std::string text = test::contentOf(file);
  std::vector<Entry> entries;
  for (const auto& entry : matchesOf(text, kEntry)) {
    entries.emplace_back(unquoted(entry[1]), unquoted(entry[2]));
  }
  if (!entries.empty() && entries.front().first.empty()) entries.erase(entries.begin());
  return entries;
}

/// The .po files, one folder a language.
std::vector<fs::path> catalogueFiles() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(kRoot / "locale")) {
    if (entry.is_directory()) files.push_back(entry.path() / "cvqt.po");
  }
  return files;
}

/// A blank at its end joins a text to what follows on its line.
bool sharesLineWithNext(const std::string& text) {
  return text.back() == ' ';
}

TEST(Catalogues, HeaderIsReadWhole) {
  const std::string header = test::contentOf(kRoot / "src/console/Messages.h");
  const auto declared = matchesOf(header, std::regex("constexpr const wchar_t\\* k"));
  EXPECT_EQ(messages().size(), declared.size());
  EXPECT_THAT(textsOf(messages()), testing::Contains("FATAL ERROR: Malformed input file: "));
}

TEST(Catalogues, TemplateHoldsTheMessagesOfTheCode) {
  EXPECT_EQ(textsOf(catalogue(kRoot / "locale/cvqt.pot")), textsOf(messages()));
}

TEST(Catalogues, EveryLanguageTranslatesTheMessagesOfTheCodeAndNoOthers) {
  ASSERT_FALSE(catalogueFiles().empty());
  for (const fs::path& file : catalogueFiles()) {
    SCOPED_TRACE(file.string());
    EXPECT_THAT(textsOf(catalogue(file)), testing::UnorderedElementsAreArray(textsOf(messages())));
    EXPECT_EQ(test::contentOf(file).find("fuzzy"), std::string::npos);
    for (const auto& [text, translation] : catalogue(file)) {
      ASSERT_FALSE(translation.empty()) << text;
      EXPECT_EQ(sharesLineWithNext(translation), sharesLineWithNext(text)) << text;
    }
  }
}

TEST(Catalogues, CodeTranslatesNothingButTheMessages) {
  static const std::regex kOtherTexts(R"re(message\(\s*L"|translate\(|gettext\()re");
  for (const auto& entry : fs::recursive_directory_iterator(kRoot / "src")) {
    const fs::path& file = entry.path();
    if (file.extension() != ".cpp" || file == kRoot / "src/console/Output.cpp") continue;
    EXPECT_FALSE(std::regex_search(test::contentOf(file), kOtherTexts)) << file;
  }
}

TEST(Catalogues, CodeShowsEveryMessage) {
  std::string code;
  for (const auto& entry : fs::recursive_directory_iterator(kRoot / "src")) {
    if (entry.path().extension() == ".cpp") code += test::contentOf(entry.path());
  }
  for (const auto& [text, name] : messages()) {
    EXPECT_TRUE(std::regex_search(code, std::regex("console::" + name + "\\b"))) << text;
  }
}

}  // namespace
}  // namespace lamcraft
