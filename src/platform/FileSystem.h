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

/// Creates one folder with default access, in which its owner may read and write all the same; its
/// parent must exist. True when it has been created.
bool createFolder(const std::string& path);

/// Whether reading what is at `path` comes to an end, as that of a file does, or of a pipe or a
/// terminal that the program was handed. Not so a FIFO of the file system, which may wait for a
/// writer for good, and devices that never run dry or wait for nobody. True where there is nothing,
/// and for files of the system that look as any other does, such as "/proc/kmsg".
bool hasAnEnd(const std::string& path);

/// Whether a file can be written at `path` as far as what stands there is concerned: nothing, or
/// a file that the user may write.
bool mayWrite(const std::string& path);

/// The file that a link at `path` leads to; `path` itself when there is no link, or one that does
/// not lead to a file.
std::string fileBehind(const std::string& path);

enum class Creation { done, taken, failed };

/// Creates an empty file with default access, which its owner may read and write all the same;
/// `taken` when there is something of that name.
Creation createFile(const std::string& path);

/// Puts the file at `from` in the place of what is at `to`, at once: at no moment there is neither,
/// or a mixture. False, and both files are as they were, when `to` is a folder or cannot be
/// replaced. On Windows it takes up to a second until that is said: other programs may have a file
/// open for a moment, and nobody can replace it then.
bool replaceFile(const std::string& from, const std::string& to);

/// Writes the bytes of the file at `from` over those of the file at `to`, which stays where it is.
/// False when that cannot be, or did not come to its end: `to` is empty then, if it was opened.
bool overwriteFile(const std::string& from, const std::string& to);

/// Gives the file at `to` the owner and the access of the one at `from`, if there is one, as far as
/// the user may. On Windows that is the read-only attribute.
void copyAccess(const std::string& from, const std::string& to);

/// Removes the file at `path`, if there is one; a folder stays. A file that may be written but not
/// removed, such as another user's in a folder with the sticky bit, is emptied instead. False when
/// neither could be done: its content is still there. Waits for other programs as replaceFile().
bool removeFile(const std::string& path);

}  // namespace lamcraft::platform

#endif
