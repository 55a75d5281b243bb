// SPDX-License-Identifier: BSD-3-Clause
#include "support/CatalogueFile.h"

#include "support/TemporaryFolder.h"

namespace lamcraft::test {

std::string unquoted(const std::string& literals) {
  std::string text;
  bool isInside = false;
  bool isEscaped = false;
  for (const char character : literals) {
    if (character == '"' && !isEscaped) {
      isInside = !isInside;
    } else if (isInside) {
      text += character;
    }
    isEscaped = character == '\\' && !isEscaped;
  }
  return text;
}

std::vector<CatalogueEntry> catalogueEntries(const std::filesystem::path& file) {
  const std::string content = contentOf(file);
  std::vector<CatalogueEntry> entries;
  for (auto at = content.find("\nmsgid "); at != std::string::npos;) {
    const auto translation = content.find("\nmsgstr ", at);
    const auto next = content.find("\nmsgid ", translation);
    entries.push_back({unquoted(content.substr(at, translation - at)),
                       unquoted(content.substr(translation, next - translation))});
    at = next;
  }
  if (!entries.empty() && entries.front().text.empty()) {
    entries.erase(entries.begin());
  }
  return entries;
}

}  // namespace lamcraft::test
