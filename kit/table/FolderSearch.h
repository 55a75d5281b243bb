// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_TABLE_FOLDERSEARCH_H
#define LAMKIT_TABLE_FOLDERSEARCH_H

#include <string>
#include <vector>

namespace lamkit {

/// The material folders that a path stands for: itself when it holds data or the record of a run,
/// else those directly below it that do, by their names; not those whose names start with a dot.
/// Throws Failure where there is none.
[[nodiscard]] std::vector<std::string> materialFolders(const std::string& path);

}  // namespace lamkit

#endif
