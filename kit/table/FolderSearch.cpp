// SPDX-License-Identifier: BSD-3-Clause
#include "table/FolderSearch.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "command/Context.h"
#include "folder/MaterialFolder.h"
#include "record/RunRecord.h"

namespace lamkit {

namespace {

namespace fs = std::filesystem;

bool isMaterialFolder(const fs::path& path) {
  std::error_code ignored;
  return holdsMaterial(path.string()) || fs::is_regular_file(path / kRunRecord, ignored);
}

}  // namespace

std::vector<std::string> materialFolders(const std::string& path) {
  std::error_code error;
  if (!fs::is_directory(path, error)) {
    throw Failure(path, "there is no such folder");
  }
  if (isMaterialFolder(path)) {
    return {path};
  }
  std::vector<std::string> folders;
  fs::directory_iterator entries(path, error);
  for (const fs::directory_entry& entry : entries) {
    const bool isHidden = entry.path().filename().string().front() == '.';
    if (!isHidden && isMaterialFolder(entry.path())) {
      folders.push_back(entry.path().string());
    }
  }
  if (error) {
    throw Failure(path, "cannot be read: " + error.message());
  }
  if (folders.empty()) {
    throw Failure(path, "there is no material in it");
  }
  std::sort(folders.begin(), folders.end());
  return folders;
}

}  // namespace lamkit
