// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_PLATFORM_INSTALLATION_H
#define LAMCRAFT_PLATFORM_INSTALLATION_H

#include <optional>
#include <string>

namespace lamcraft::platform {

/// The folder of the message catalogues as the installation tells it, or nothing when it tells
/// none.
///
/// Windows: the value "InstallLocation" of the product's key in the 64-bit view of the registry,
/// see catalogueFolderBelow(). Elsewhere: "../share/locale" seen from the folder of the executable,
/// when there is such a folder.
std::optional<std::string> installedCatalogueFolder();

/// The catalogue folder below an installation folder that ends in a backslash: "bin\locale" is
/// appended without a separator, and each character keeps its low byte alone. Installation folders
/// are plain ASCII.
std::string catalogueFolderBelow(const std::wstring& installationFolder);

}  // namespace lamcraft::platform

#endif
