// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_MATERIAL_TARGETFOLDER_H
#define LAMCRAFT_MATERIAL_TARGETFOLDER_H

#include <string>

#include "abqinp/InputFile.h"
#include "model/Composite.h"

namespace lamcraft {

/// The folder that a run writes its material into.
class TargetFolder {
 public:
  /// The folder at this path; nothing is created yet.
  explicit TargetFolder(std::string path);
  /// The folder of the material of that name in `parent`.
  TargetFolder(const std::string& parent, const std::string& materialName);

  [[nodiscard]] const std::string& path() const noexcept { return path_; }
  /// The path of the material data file.
  [[nodiscard]] std::string materialData() const;

  /// Makes sure that there is a folder; false when there is none and none can be created.
  [[nodiscard]] bool create() const;
  /// Whether there is a material data file as the overwrite rule looks at it.
  [[nodiscard]] bool holdsMaterial() const;

  /// Writes the copy of the deck, the material data and, for a deck with S-N data, the fatigue
  /// data. Throws std::runtime_error when the copy cannot be written; a data file that cannot be
  /// saved is missing without a word, or the old one stays.
  void write(const abqinp::InputFile& deck, const Composite& composite) const;

 private:
  std::string path_;
};

}  // namespace lamcraft

#endif
