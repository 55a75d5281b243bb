// SPDX-License-Identifier: BSD-3-Clause
#include "material/TargetFolder.h"

#include <stdexcept>
#include <utility>

#include "material/WholeFile.h"
#include "model/MaterialFiles.h"
#include "platform/FileSystem.h"

namespace lamcraft {

namespace {

std::string joined(const std::string& folder, const std::string& name) {
  return folder + platform::pathSeparator() + name;
}

/// Whether it could be saved shows in the folder alone.
void writeData(const std::string& path, const Composite& composite, const DataFile kind) {
  static_cast<void>(
      writeWhole(path, [&](const std::string& place) { return composite.write(place, kind); }));
}

}  // namespace

TargetFolder::TargetFolder(std::string path) : path_(std::move(path)) {}

TargetFolder::TargetFolder(const std::string& parent, const std::string& materialName)
    : path_(joined(parent, materialName)) {}

std::string TargetFolder::materialData() const {
  return joined(path_, kMaterialData);
}

bool TargetFolder::create() const {
  return platform::isFolder(path_) || platform::createFolder(path_);
}

bool TargetFolder::holdsMaterial() const {
  return platform::isNormalFile(materialData());
}

void TargetFolder::write(const abqinp::InputFile& deck, const Composite& composite) const {
  const std::string deckCopy = joined(path_, kDeckCopy);
  const auto writeDeck = [&](const std::string& place) {
    deck.write(place, true);
    return true;
  };
  if (!writeWhole(deckCopy, writeDeck)) {
    throw std::runtime_error("Could not open file " + deckCopy);
  }
  writeData(materialData(), composite, DataFile::material);
  if (composite.presence.snData) {
    writeData(joined(path_, kFatigueData), composite, DataFile::fatigue);
  }
}

}  // namespace lamcraft
