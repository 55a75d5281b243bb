// SPDX-License-Identifier: BSD-3-Clause
#include "material/Material.h"

#include <sstream>
#include <utility>

#include "abqinp/InputFileException.h"
#include "console/Messages.h"
#include "console/Output.h"
#include "material/KeywordTable.h"
#include "platform/FileSystem.h"

namespace lamcraft {

namespace {

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

}  // namespace

void Material::setResultsDirectory(std::string directory) {
  resultsDirectory_ = std::move(directory);
}

void Material::interpret() {
  interpretation_ = Interpretation(*this);
  restart();
  while (nextKeyword()) {
    interpretation_.interpret(*currentKeyword());
  }
}

void Material::create() {
  interpret();
  if (!resultsDirectory_ && !platform::isFolder(interpretation_.materialsDirectory)) {
    printMaterialsDirectoryMissing(interpretation_.materialsDirectory);
    return;
  }
  if (!interpretation_.hasComposite()) {  // a deck without a single keyword
    throw abqinp::InputFileException::missingParent("", kMaterialKeyword);
  }
  const TargetFolder folder = targetFolder();
  if (!folder.create()) {
    printFolderNotCreated(folder.path());
    return;
  }
  if (!interpretation_.overwrite && folder.holdsMaterial()) {
    printTargetExists(folder.materialData());
    return;
  }
  std::ostringstream reasons;
  if (!composite().validate(reasons)) {
    printInputsInvalid(reasons.str());
    return;
  }
  if (composite().solve(folder.path()) == 0) {
    folder.write(*this, composite());
  }
}

TargetFolder Material::targetFolder() const {
  return resultsDirectory_
             ? TargetFolder(*resultsDirectory_)
             : TargetFolder(interpretation_.materialsDirectory, composite().materialName);
}

}  // namespace lamcraft
