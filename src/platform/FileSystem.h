#ifndef LAMCRAFT_PLATFORM_FILESYSTEM_H
#define LAMCRAFT_PLATFORM_FILESYSTEM_H

#include <cstdint>
#include <optional>
#include <string>

namespace lamcraft::platform {

/// Bits of a file's attribute word, the values of Windows on every platform.
inline constexpr std::uint32_t kFolderAttribute = 0x10;
inline constexpr std::uint32_t kNormalAttribute = 0x80;

/// What stands between the folders of a path: "\" on Windows, "/" elsewhere.
std::string pathSeparator();

/// The attribute word of a file or folder, or nothing when there is none at `path`. Windows answers
/// its own word. Elsewhere a folder has kFolderAttribute and anything else kNormalAttribute: a file
/// without attributes of its own.
///
/// Paths are in the encoding of the program's arguments; none of these functions throws for a path.
std::optional<std::uint32_t> fileAttributes(const std::string& path);

/// Whether there is a folder at `path`.
bool isFolder(const std::string& path);

/// Whether there is a file at `path` whose attribute word has kNormalAttribute. On Windows a file
/// that carries any other attribute, such as the archive bit, has not.
bool isNormalFile(const std::string& path);

/// Creates one folder with default access; its parent must exist. True when it has been created.
bool createFolder(const std::string& path);

}  // namespace lamcraft::platform

#endif
