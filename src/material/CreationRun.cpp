#include <sstream>
#include <string>

#include "abqinp/InputFileException.h"
#include "console/Messages.h"
#include "console/Output.h"
#include "material/KeywordTable.h"
#include "material/Material.h"
#include "platform/FileSystem.h"

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

void Material::writeFiles(const std::string& folder) const {
  write(pathOf(folder, kDeckCopy), true);
  composite_->write(pathOf(folder, kMaterialData), DataFile::material);
  if (composite_->presence.snData) {
    composite_->write(pathOf(folder, kFatigueData), DataFile::fatigue);
  }
}

}  // namespace lamcraft
