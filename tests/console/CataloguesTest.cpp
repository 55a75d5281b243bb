// SPDX-License-Identifier: BSD-3-Clause
#include <cctype>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/CatalogueFile.h"
#include "support/TemporaryFolder.h"

// The messages in the code and the catalogues in locale/ are held together here: none may have a
// text that the other has not.

namespace lamcraft {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = fs::path(LAMCRAFT_TEST_DATA).parent_path();

using test::catalogueEntries;
using test::unquoted;

struct Message {
  std::string name;
  std::string text;
};

/// Every message in the code.
std::vector<Message> messages() {
  const std::string declaration = "constexpr const wchar_t* ";
  const std::string header = test::contentOf(kRoot / "src/console/Messages.h");
  std::vector<Message> found;
  for (auto at = header.find(declaration); at != std::string::npos;) {
    const auto name = at + declaration.size();
    const auto text = header.find(" =", name);
    at = header.find(declaration, name);
    found.push_back({header.substr(name, text - name),
                     unquoted(header.substr(text, header.find(";\n", text) - text))});
  }
  return found;
}

template <typename Entry>
std::vector<std::string> textsOf(const std::vector<Entry>& entries) {
  std::vector<std::string> texts;
  texts.reserve(entries.size());
  for (const auto& entry : entries) {
    texts.push_back(entry.text);
  }
  return texts;
}

/// The .po files, one folder a language.
std::vector<fs::path> catalogueFiles() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(kRoot / "locale")) {
    if (entry.is_directory()) {
      files.push_back(entry.path() / "cvqt.po");
    }
  }
  return files;
}

/// A blank at its end joins a text to what follows on its line.
bool sharesLineWithNext(const std::string& text) {
  return text.back() == ' ';
}

TEST(Catalogues, HeaderIsReadWhole) {
  const std::string header = test::contentOf(kRoot / "src/console/Messages.h");
  std::size_t lines = 0;
  for (auto at = header.find("\ninline"); at != std::string::npos; ++lines) {
    at = header.find("\ninline", at + 1);
  }
  EXPECT_EQ(messages().size(), lines);
  EXPECT_THAT(textsOf(messages()), testing::Contains("FATAL ERROR: Malformed input file: "));
}

TEST(Catalogues, TemplateHoldsTheMessagesOfTheCode) {
  EXPECT_EQ(textsOf(catalogueEntries(kRoot / "locale/cvqt.pot")), textsOf(messages()));
}

TEST(Catalogues, EveryLanguageTranslatesTheMessagesOfTheCodeAndNoOthers) {
  ASSERT_FALSE(catalogueFiles().empty());
  for (const fs::path& file : catalogueFiles()) {
    SCOPED_TRACE(file.string());
    EXPECT_THAT(textsOf(catalogueEntries(file)),
                testing::UnorderedElementsAreArray(textsOf(messages())));
    EXPECT_EQ(test::contentOf(file).find("fuzzy"), std::string::npos);
    for (const auto& [text, translation] : catalogueEntries(file)) {
      ASSERT_FALSE(translation.empty()) << text;
      EXPECT_EQ(sharesLineWithNext(translation), sharesLineWithNext(text)) << text;
    }
  }
}

/// The sources of the program, path and content.
std::map<fs::path, std::string> sources() {
  std::map<fs::path, std::string> found;
  for (const auto& entry : fs::recursive_directory_iterator(kRoot / "src")) {
    if (entry.path().extension() == ".cpp") {
      found[entry.path()] = test::contentOf(entry.path());
    }
  }
  return found;
}

TEST(Catalogues, CodeTranslatesNothingButTheMessages) {
  for (const auto& [file, code] : sources()) {
    if (file == kRoot / "src/console/Output.cpp") {
      continue;
    }
    for (const char* call : {"message(L\"", "translate(", "gettext("}) {
      EXPECT_EQ(code.find(call), std::string::npos) << file << " has " << call;
    }
  }
}

TEST(Catalogues, CodeShowsEveryMessage) {
  std::string code;
  for (const auto& source : sources()) {
    code += source.second;
  }
  for (const auto& message : messages()) {
    const std::string name = "console::" + message.name;
    auto at = code.find(name);
    while (at != std::string::npos && std::isalnum(code[at + name.size()]) != 0) {
      at = code.find(name, at + 1);
    }
    EXPECT_NE(at, std::string::npos) << name << " is shown nowhere";
  }
}

}  // namespace
}  // namespace lamcraft
