// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_SYSTEM_FOLDERS_H
#define LAMKIT_SYSTEM_FOLDERS_H

#include <filesystem>

namespace lamkit {

/// Puts the folder `part` in the place of `folder`, whatever stands there, and removes that. Where
/// the system can exchange two folders at once, there is at every moment a whole one at `folder`;
/// where it cannot, an old one is set aside as `aside` for a moment. Throws
/// std::filesystem::filesystem_error.
void replaceFolder(const std::filesystem::path& part,
                   const std::filesystem::path& folder,
                   const std::filesystem::path& aside);

/// The path of this program's executable. Throws std::filesystem::filesystem_error.
[[nodiscard]] std::filesystem::path ownExecutable();

}  // namespace lamkit

#endif
