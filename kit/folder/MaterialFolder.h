// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_FOLDER_MATERIALFOLDER_H
#define LAMKIT_FOLDER_MATERIALFOLDER_H

#include <optional>
#include <stdexcept>
#include <string>

#include "folder/MaterialData.h"

namespace lamkit {

/// Why a folder cannot be read.
enum class FolderFault {
  missing,     ///< there is no such folder
  noData,      ///< it holds no mdata.xml
  unreadable,  ///< a data file is cut off, not of this program, or cannot be opened
};

/// Thrown for a folder that cannot be read. what() names the file, its line and the reason.
class FolderError : public std::runtime_error {
 public:
  FolderError(FolderFault fault, const std::string& what)
      : std::runtime_error(what), fault_(fault) {}
  [[nodiscard]] FolderFault fault() const noexcept { return fault_; }

 private:
  FolderFault fault_;
};

/// A material folder.
///
///   const lamkit::MaterialFolder folder = lamkit::readFolder("out/as4");
///   const auto& environment = folder.data.environments.front();
///   const double e11 = lamkit::valueOf(environment.lamina(), lamcraft::Property::e11);
struct MaterialFolder {
  std::string path;                         ///< as it was asked for
  MaterialData data;                        ///< mdata.xml
  std::optional<MaterialData> fatigueData;  ///< fdata.xml, where there is one
  std::optional<std::string> deckCopy;      ///< path of input.qdk, where there is one

  /// The environment that has the results of the fatigue fit: that of fdata.xml, or of mdata.xml
  /// where the former has none of this number (counted from 0).
  [[nodiscard]] const EnvironmentData& withFatigue(std::size_t environment) const;
};

/// Reads the data files of a folder. Throws FolderError.
[[nodiscard]] MaterialFolder readFolder(const std::string& path);

/// Reads one data file. Throws FolderError, with FolderFault::unreadable for all faults.
[[nodiscard]] MaterialData readDataFile(const std::string& path);

/// Whether a folder holds an mdata.xml.
[[nodiscard]] bool holdsMaterial(const std::string& path);

}  // namespace lamkit

#endif
