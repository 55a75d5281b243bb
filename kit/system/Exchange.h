// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_SYSTEM_EXCHANGE_H
#define LAMKIT_SYSTEM_EXCHANGE_H

#include <filesystem>

namespace lamkit {

/// Exchanges the names of two folders at once. False, with nothing changed, where the system or
/// the file system cannot.
[[nodiscard]] bool exchangeFolders(const std::filesystem::path& one,
                                   const std::filesystem::path& other);

}  // namespace lamkit

#endif
