// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MATERIAL_WHOLEFILE_H
#define LAMCRAFT_MATERIAL_WHOLEFILE_H

#include <functional>
#include <string>

namespace lamcraft {

/// Writes a file at a path; false when it is not whole. Called again where another path is tried.
using FileWriter = std::function<bool(const std::string& path)>;

/// Writes the file at `path` so that under its name there is the old file or the whole new one at
/// any moment, also when the disk is full, the process is killed or the power fails: it is written
/// as "NAME.part" beside its place, which then takes the name. A part of that name, of a killed run
/// or one that is at work, is left alone, and the new one is called "NAME.part2" and so on.
///
/// Where the folder takes no new file, or lets nobody replace the old one, the file is written in
/// its place instead; there, half of it can be found. A link to a file is followed.
///
/// False, and the old file is as it was, when it is write-protected or no file, or when `write`
/// could not write the part, which is removed then. Throws what `write` throws, likewise.
[[nodiscard]] bool writeWhole(const std::string& path, const FileWriter& write);

}  // namespace lamcraft

#endif
