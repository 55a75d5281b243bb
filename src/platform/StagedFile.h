#ifndef LAMCRAFT_PLATFORM_STAGEDFILE_H
#define LAMCRAFT_PLATFORM_STAGEDFILE_H

#include <string>

namespace lamcraft::platform {

/// A file that is written under another name, "NAME.part" in the same folder, and takes its own
/// name when it is whole: under that name, nobody ever finds half of it. A part that does not come
/// to that is removed; one that a killed process has left is of no use to anybody. A link to a file
/// is followed, and the part lies beside that file, or beside the link where that folder takes
/// none; whatever else has the name makes room, but for a folder. The new file has the owner
/// and the access of the old one. An old one that may be written but not replaced, such as another
/// user's in a folder with the sticky bit, is written where it is: there, half can be found.
class StagedFile {
 public:
  /// path: the name in the end. Nothing is created yet.
  explicit StagedFile(std::string path);
  StagedFile(const StagedFile&) = delete;
  StagedFile& operator=(const StagedFile&) = delete;
  ~StagedFile();

  /// Creates the part, empty, under a name that no other file has; false where the folder takes no
  /// file.
  bool create();
  /// Removes the part; there is nothing to commit then.
  void discard();
  /// Removes the file at path(), or empties it where it may not be removed; a folder stays. False
  /// when the old content is still there.
  [[nodiscard]] bool removeOld() const;
  /// Puts the part in the place of what stands at path(). False when that failed or when there is
  /// no part.
  bool commit();

  /// The name in the end.
  [[nodiscard]] const std::string& path() const noexcept { return path_; }
  /// Where to write; empty without a part.
  [[nodiscard]] const std::string& part() const noexcept { return part_; }

 private:
  std::string path_;
  std::string target_;
  std::string part_;
};

}  // namespace lamcraft::platform

#endif
