// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_SUPPORT_CATALOGUEFILE_H
#define LAMCRAFT_TESTS_SUPPORT_CATALOGUEFILE_H

#include <filesystem>
#include <string>
#include <vector>

namespace lamcraft::test {

/// A text of a catalogue and its translation, which is empty in a template.
struct CatalogueEntry {
  std::string text;
  std::string translation;
};

/// The entries of a .po or .pot file in its order, without the header.
std::vector<CatalogueEntry> catalogueEntries(const std::filesystem::path& file);

/// The quoted pieces of C literals, joined; escapes stay as they are written.
std::string unquoted(const std::string& literals);

}  // namespace lamcraft::test

#endif
