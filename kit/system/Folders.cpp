// SPDX-License-Identifier: BSD-3-Clause
#include "system/Folders.h"

#include "system/Exchange.h"

namespace lamkit {

void replaceFolder(const std::filesystem::path& part,
                   const std::filesystem::path& folder,
                   const std::filesystem::path& aside) {
  namespace fs = std::filesystem;
  if (!fs::exists(fs::symlink_status(folder))) {
    fs::rename(part, folder);
    return;
  }
  if (exchangeFolders(part, folder)) {
    fs::remove_all(part);
    return;
  }
  fs::remove_all(aside);
  fs::rename(folder, aside);
  fs::rename(part, folder);
  fs::remove_all(aside);
}

}  // namespace lamkit
