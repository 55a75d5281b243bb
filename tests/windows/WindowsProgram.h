// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_WINDOWS_WINDOWSPROGRAM_H
#define LAMCRAFT_TESTS_WINDOWS_WINDOWSPROGRAM_H

#include <map>
#include <string>
#include <vector>

#include "support/ProcessRun.h"
#include "support/TemporaryFolder.h"

namespace lamcraft::test {

/// Runs a Windows program, or one of Wine's own, to its end. `process` is as for run(): LC_ALL in
/// its environment is the language of the user, English when it is not set.
ProcessResult runUnderWine(const ProcessRun& process);

/// A text with the line ends of Windows turned into those of this machine.
std::string withPlainLineEnds(const std::string& text);

/// A UTF-8 text in the code page `codePage` of Windows. Characters that it lacks are an error.
std::string inCodePage(const std::string& text, int codePage);

/// A path of this machine as Windows programs under Wine see it.
std::string windowsPath(const std::string& path);

/// Copies the compiled catalogues to `folder`, which must not exist.
void copyCatalogues(const std::string& folder);

/// The program with the stand-in library beside it, in a folder of its own that is also where it is
/// started. Nothing else is there.
class WindowsProgram {
 public:
  enum class Library { standIn, engine };

  explicit WindowsProgram(Library library = Library::standIn);

  [[nodiscard]] const TemporaryFolder& folder() const { return folder_; }
  [[nodiscard]] std::string program() const { return folder_.file("lamcraft.exe"); }

  /// Runs the program; its output comes with plain line ends.
  [[nodiscard]] ProcessResult run(const std::vector<std::string>& arguments,
                                  const std::map<std::string, std::string>& environment = {}) const;

  /// The same from a command prompt that first sets variables of its own, in which Wine does not
  /// look for the user's language: "LC_ALL=" removes one.
  [[nodiscard]] ProcessResult runFromPrompt(const std::vector<std::string>& settings,
                                            const std::string& language) const;

 private:
  TemporaryFolder folder_;
};

}  // namespace lamcraft::test

#endif
