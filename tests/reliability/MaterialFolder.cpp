// SPDX-License-Identifier: BSD-3-Clause
#include "reliability/MaterialFolder.h"

#include <algorithm>
#include <stdexcept>

#include "reliability/ForkedRun.h"

namespace lamcraft::test {

namespace fs = std::filesystem;

namespace {

bool isPart(const std::string& name) {
  return name.find(".part") != std::string::npos;
}

bool holds(const Files& files, const std::string& name, const std::string& content) {
  const auto file = files.find(name);
  return file != files.end() && file->second == content;
}

}  // namespace

Files filesIn(const fs::path& folder, const bool withParts) {
  Files files;
  if (!fs::is_directory(folder)) {
    return files;
  }
  for (const auto& entry : fs::directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    if (entry.is_regular_file() && (withParts || !isPart(name))) {
      files[name] = contentOf(entry.path());
    }
  }
  return files;
}

std::string namesOf(const Files& files) {
  std::string names;
  for (const auto& [name, content] : files) {
    names += name + " ";
  }
  return names;
}

UniDeck completeDeck(const std::string& fiberFraction) {
  UniDeck deck;
  deck.material = "*MATERIAL, TYPE=UNI, SYSTEM=XYZ, NAME=PLY, OVERWRITE\n1\n";
  deck.more = "*SNDATA\n600e6, 1e3, 10, 0, 0.1\n*FVF\n" + fiberFraction + "\n";
  return deck;
}

Files undisturbed(const UniDeck& deck) {
  const TemporaryFolder folder;
  folder.write("deck.qdk", deck.text());
  if (runForked({"deck.qdk", "out"}, folder.path().string()).exitCode != 0) {
    throw std::runtime_error("a run that nothing disturbs failed");
  }
  return filesIn(folder.path() / "out");
}

bool isSound(const Files& files, const Files& old, const Files& fresh) {
  const bool hasDeck = holds(files, "input.qdk", fresh.at("input.qdk"));
  const bool isWhole = std::all_of(files.begin(), files.end(), [&](const auto& file) {
    return holds(old, file.first, file.second) ||
           (hasDeck && holds(fresh, file.first, file.second));
  });
  return isWhole && std::all_of(old.begin(), old.end(), [&](const auto& file) {
           return files.count(file.first) > 0;
         });
}

}  // namespace lamcraft::test
