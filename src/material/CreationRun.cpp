#include <sstream>
#include <stdexcept>
#include <string>

#include "abqinp/InputFileException.h"
#include "console/Messages.h"
#include "console/Output.h"
#include "material/KeywordTable.h"
#include "material/Material.h"
#include "model/MaterialFiles.h"
#include "platform/FileSystem.h"
#include "platform/FolderLock.h"

namespace lamcraft {

namespace {

std::string pathOf(const std::string& folder, const std::string& name) {
  return folder + platform::pathSeparator() + name;
}

void printMaterialsDirectoryMissing(const std::string& directory) {
  console::Output().message(console::kMaterialsDirectoryMissing).text(directory).endLine();
}

void printFolderNotCreated(const std::string& folder) {
  console::Output().message(console::kMaterialDirectoryNotCreated).endLine().text(folder).endLine();
}

void printTargetExists(const std::string& materialData) {
  console::Output out;
  out.message(console::kTargetExists).text(materialData).endLine();
  out.message(console::kUseOverwrite).endLine();
}

void printInputsInvalid(const std::string& reasons) {
  console::Output().message(console::kInputsInvalid).endLine().text(reasons).endLine();
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
  if (!resultsDirectory_ && !platform::isFolder(interpretation_.materialsDirectory)) {
    printMaterialsDirectoryMissing(interpretation_.materialsDirectory);
    return;
  }
  if (!interpretation_.hasComposite()) {  // a deck without a single keyword
    throw abqinp::InputFileException::missingParent("", kMaterialKeyword);
  }
  const std::string folder = targetFolder();
  if (!platform::isFolder(folder) && !platform::createFolder(folder)) {
    printFolderNotCreated(folder);
    return;
  }
  const std::string materialData = pathOf(folder, kMaterialData);
  if (isKept(materialData)) {
    printTargetExists(materialData);
    return;
  }
  std::ostringstream reasons;
  if (!composite().validate(reasons)) {
    printInputsInvalid(reasons.str());
    return;
  }
  if (composite().solve(folder) == 0) {
    writeFiles(folder);
  }
}

std::string Material::targetFolder() const {
  return resultsDirectory_ ? *resultsDirectory_
                           : pathOf(interpretation_.materialsDirectory, composite().materialName);
}

bool Material::isKept(const std::string& materialData) const {
  return !interpretation_.overwrite && platform::isNormalFile(materialData);
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
  if (file.create() && !composite().write(file.part(), kind)) {
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
  if (composite().presence.snData) {
    stageData(fatigueData, DataFile::fatigue);
  }

  const platform::FolderLock lock(folder);
  if (isKept(materialData.path())) {  // another run has brought its material to an end meanwhile
    printTargetExists(materialData.path());
    return;
  }
  requireRemoval(materialData);
  if (composite().presence.snData) {
    requireRemoval(fatigueData);
  }
  if (!deck.commit()) {
    throw couldNotOpen(deck.path());
  }
  fatigueData.commit();
  materialData.commit();
}

}  // namespace lamcraft
