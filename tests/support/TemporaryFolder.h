// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_SUPPORT_TEMPORARYFOLDER_H
#define LAMCRAFT_TESTS_SUPPORT_TEMPORARYFOLDER_H

#include <filesystem>
#include <string>

namespace lamcraft::test {

/// A fresh empty folder, removed with all that is in it at the end of a test.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  /// The path of `name` in this folder, as the program takes it.
  [[nodiscard]] std::string file(const std::string& name) const { return (path_ / name).string(); }

  /// Writes `content` to the file `name` and answers its path.
  std::string write(const std::string& name, const std::string& content) const;

 private:
  std::filesystem::path path_;
};

/// The bytes of a file; throws std::runtime_error when it cannot be read.
std::string contentOf(const std::filesystem::path& file);

}  // namespace lamcraft::test

#endif
