// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_ABQINP_TEMPORARYFILE_H
#define LAMCRAFT_TESTS_ABQINP_TEMPORARYFILE_H

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

/// A file of the system's temporary folder that goes with the object.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string_view content = {}) {
    std::random_device random;
    path_ = std::filesystem::temp_directory_path() /
            ("lamcraft-test-" + std::to_string(random()) + "-" + std::to_string(random()));
    std::ofstream file(path_, std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }

  [[nodiscard]] std::string path() const { return path_.string(); }
  [[nodiscard]] std::string content() const {
    std::ifstream file(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::filesystem::path path_;
};

#endif
