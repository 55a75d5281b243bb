// SPDX-License-Identifier: BSD-3-Clause
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

/// Whether reading what is at `path` may never come to an end: a FIFO of the file system, which may
/// wait for a writer for good, and devices that never run dry or wait for nobody. Not so files,
/// pipes and terminals that the program was handed, nothing at all, and files of the system that
/// look as any other does, such as "/proc/kmsg".
bool isEndless(const std::string& path);

/// Whether a file can be written at `path` as far as what stands there is concerned: nothing, or
/// a file that the user may write.
bool mayWrite(const std::string& path);

/// The file that a link at `path` leads to; `path` itself when there is no link, or one that does
/// not lead to anything. Windows' links are not looked at.
std::string fileBehind(const std::string& path);

/// What the system says to a change of a folder.
enum class Answer {
  done,
  exists,  ///< there is something of that name
  denied,  ///< the user may not change the folder in this way, or the file is open elsewhere
  failed   ///< any other error, such as a full disk
};

/// Creates an empty file with default access, where nothing has its name.
Answer createFile(const std::string& path);

/// Puts the file at `from`, once its content is on the disk, in the place of a file at `to`, at
/// once: at no moment there is neither, or a mixture. On Windows it takes up to a second until
/// `denied` is said: other programs may have a file open for a moment, and nobody can replace it
/// then.
Answer replaceFile(const std::string& from, const std::string& to);

/// Removes the file at `path`, if that can be done.
void removeFile(const std::string& path);

}  // namespace lamcraft::platform

#endif
