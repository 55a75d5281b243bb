#include <sstream>
#include <stdexcept>
#include <string>

#include "abqinp/InputFileException.h"
#include "console/Messages.h"
#include "console/Output.h"
#include "material/KeywordTable.h"
#include "material/Material.h"
#include "platform/FileSystem.h"
#include "platform/FolderLock.h"

namespace lamcraft {

namespace {

constexpr const char* kDeckCopy = "input.qdk";
constexpr const char* kMaterialData = "mdata.xml";
constexpr const char* kFatigueData = "fdata.xml";

std::string pathOf(const std::string& folder, const std::string& name) {
  return folder + platform::pathSeparator() + name;
}

bool makeFolder(const std::string& folder) {
  if (platform::isFolder(folder) || platform::createFolder(folder)) {
    return true;
  }
  console::Output out;
  out.message(console::kMaterialDirectoryNotCreated).endLine();
  out.text(folder).endLine();
  return false;
}

bool isValid(const Composite& composite) {
  std::ostringstream messages;
  if (composite.validate(messages)) {
    return true;
  }
  console::Output out;
  out.message(console::kInputsInvalid).endLine();
  out.text(messages.str()).endLine();
  return false;
}

std::runtime_error couldNotOpen(const std::string& path) {
  return std::runtime_error("Could not open file " + path);
}

/// Data that could not be removed would stand beside the copy of another deck.
void requireRemoval(const platform::StagedFile& old) {
  if (!old.removeOld()) {
    throw couldNotOpen(old.path());
  }
}

}  // namespace

void Material::create() {
  interpret();
  if (!hasResultsDirectory_ && !platform::isFolder(materialsDirectory)) {
    console::Output()
        .message(console::kMaterialsDirectoryMissing)
        .text(materialsDirectory)
        .endLine();
    return;
  }
  requireComposite();
  const std::string folder = targetFolder();
  if (!makeFolder(folder) || !mayWrite(folder) || !isValid(*composite_) ||
      composite_->solve(folder) != 0) {
    return;
  }
  writeFiles(folder);
}

void Material::requireComposite() const {
  if (composite_ == nullptr) {
    // A deck without a single keyword.
    throw abqinp::InputFileException::missingParent("", kMaterialKeyword);
  }
}

std::string Material::targetFolder() const {
  return hasResultsDirectory_ ? resultsDirectory_
                              : pathOf(materialsDirectory, composite_->materialName);
}

bool Material::mayWrite(const std::string& folder) const {
  const std::string path = pathOf(folder, kMaterialData);
  if (overwrite || !platform::isNormalFile(path)) {
    return true;
  }
  console::Output out;
  out.message(console::kTargetExists).text(path).endLine();
  out.message(console::kUseOverwrite).endLine();
  return false;
}

void Material::stageDeck(platform::StagedFile& file) const {
  if (!platform::mayWrite(file.path()) || !file.create()) {
    throw couldNotOpen(file.path());
  }
  write(file.part(), true);
}

/// That a data file cannot be saved, not even begun, is not reported: it is missing then. An old
/// one goes all the same, since one that stays would pass for the new one.
void Material::stageData(platform::StagedFile& file, const DataFile kind) const {
  if (file.create() && !composite_->write(file.part(), kind)) {
    file.discard();
  }
}

/// Nothing in the folder changes until all files are written as far as they can be. Then the old
/// data files go first and the new material data come last: a deck's copy never stands beside the
/// data of another deck, and without mdata.xml it marks a run that failed while writing.
void Material::writeFiles(const std::string& folder) const {
  platform::StagedFile deck(pathOf(folder, kDeckCopy));
  platform::StagedFile materialData(pathOf(folder, kMaterialData));
  platform::StagedFile fatigueData(pathOf(folder, kFatigueData));
  stageDeck(deck);
  stageData(materialData, DataFile::material);
  if (composite_->presence.snData) {
    stageData(fatigueData, DataFile::fatigue);
  }

  const platform::FolderLock lock(folder);
  if (!mayWrite(folder)) {  // another run has brought its material to an end meanwhile
    return;
  }
  requireRemoval(materialData);
  if (composite_->presence.snData) {
    requireRemoval(fatigueData);
  }
  if (!deck.commit()) {
    throw couldNotOpen(deck.path());
  }
  fatigueData.commit();
  materialData.commit();
}

}  // namespace lamcraft
