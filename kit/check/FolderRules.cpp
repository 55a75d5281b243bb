// SPDX-License-Identifier: BSD-3-Clause
#include "check/FolderRules.h"

#include <filesystem>
#include <string>
#include <system_error>

#include "check/Wording.h"
#include "platform/FileSystem.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace lamkit {

namespace {

/// Whether the user may make files in a folder. On Windows a folder's access is found out by trying
/// only, so that it is taken for granted.
bool mayWriteInto(const std::string& folder) {
#ifdef _WIN32
  return _access(folder.c_str(), 0) == 0;
#else
  return access(folder.c_str(), W_OK | X_OK) == 0;
#endif
}

}  // namespace

void checkFolder(const Reading& reading, Report& report) {
  using lamcraft::platform::isFolder;
  const abqinp::Keyword* const solve = reading.last("SOLVE");
  if (solve == nullptr || !solve->hasParameter("MATDIR")) {
    return;
  }
  const auto add = [&](const std::string& message) {
    report.add("results-folder", Severity::error, parameterSpot(*solve, "MATDIR"), message);
  };
  const std::string parent = reading.interpretation.materialsDirectory;
  if (!isFolder(parent)) {
    add("the folder \"" + parent +
        "\" of MATDIR does not exist here: make it, or name a results folder on the command line "
        "(quote names with small letters)");
    return;
  }
  const std::string separator = lamcraft::platform::pathSeparator();
  const std::string target = parent + separator + reading.composite().materialName;
  if (!isFolder(target)) {
    const std::string above = target.substr(0, target.find_last_of("/\\"));
    if (!isFolder(above)) {
      add("the folder \"" + target +
          "\" cannot be made, since its parent does not exist: take the "
          "separator out of NAME");
    } else if (lamcraft::platform::fileAttributes(target).has_value() || !mayWriteInto(above)) {
      add("the folder \"" + target + "\" cannot be made: choose another MATDIR or NAME");
    }
    return;
  }
  if (!mayWriteInto(target)) {
    add("the folder \"" + target + "\" cannot be written: choose another MATDIR or NAME");
  } else if (!reading.interpretation.overwrite &&
             lamcraft::platform::isNormalFile(target + separator + "mdata.xml")) {
    add("\"" + target + separator +
        "mdata.xml\" is there already, and stops the run: add OVERWRITE "
        "to *MATERIAL, or choose another NAME");
  }
}

}  // namespace lamkit
