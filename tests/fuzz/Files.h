// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_FUZZ_FILES_H
#define LAMCRAFT_TESTS_FUZZ_FILES_H

#include <array>
#include <cstddef>
#include <cstdio>
#include <string>

#include "fuzz/Target.h"

namespace lamcraft::fuzz {

/// Files without a stream's locale and buffers, which would take longer than many an input does.
class File {
 public:
  File(const std::string& path, const char* const mode) : file_(std::fopen(path.c_str(), mode)) {
    if (file_ != nullptr) {
      std::setvbuf(file_, nullptr, _IONBF, 0);
    }
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File() {
    if (file_ != nullptr) {
      std::fclose(file_);
    }
  }

  [[nodiscard]] bool isOpen() const noexcept { return file_ != nullptr; }

  void write(const std::string& content) {
    require(isOpen() && std::fwrite(content.data(), 1, content.size(), file_) == content.size(),
            "an input can be written to a file");
  }
  std::string content() {
    std::string all;
    std::array<char, 32768> piece;  // NOLINT(cppcoreguidelines-pro-type-member-init): read into
    while (const std::size_t size = std::fread(piece.data(), 1, piece.size(), file_)) {
      all.append(piece.data(), size);
    }
    return all;
  }

 private:
  std::FILE* file_;
};

}  // namespace lamcraft::fuzz

#endif
