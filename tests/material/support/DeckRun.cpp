// SPDX-License-Identifier: BSD-3-Clause
#include "material/support/DeckRun.h"

#include "support/TemporaryFolder.h"

namespace lamcraft {

std::string materialKeyword(const std::string& type, const std::string& system) {
  return "*MATERIAL, TYPE=" + type + ", SYSTEM=" + system + ", NAME=\"Sample 1\"\n";
}

std::string environmentKeyword(const std::string& moisture, const std::string& temperature) {
  return "*ENVIRONMENT, MOISTURE=" + moisture + ", TEMPERATURE=" + temperature + "\n";
}

InterpretedDeck::InterpretedDeck(const std::string& deck) {
  const test::TemporaryFolder folder;
  material_.read(folder.write("deck.qdk", deck));
  material_.interpret();
}

}  // namespace lamcraft
