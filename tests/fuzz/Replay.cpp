// SPDX-License-Identifier: BSD-3-Clause
// Gives every file of the folders in the arguments, in the order of their names, to a target.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "fuzz/Target.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> filesOf(const fs::path& folder) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.is_regular_file()) {
      files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

void replay(const fs::path& path) {
  std::fprintf(stderr, "%s\n", path.filename().string().c_str());
  std::ifstream file(path, std::ios::binary);
  const std::vector<char> content{std::istreambuf_iterator<char>(file), {}};
  // A block of just that size, so that a sanitizer sees any byte read behind it.
  const std::vector<std::uint8_t> input(content.begin(), content.end());
  LLVMFuzzerTestOneInput(input.data(), input.size());
}

}  // namespace

int main(const int count, const char* const* const arguments) {
  std::size_t replayed = 0;
  for (int i = 1; i < count; ++i) {
    for (const fs::path& file : filesOf(arguments[i])) {
      replay(file);
      ++replayed;
    }
  }
  std::printf("%zu inputs\n", replayed);
  return replayed > 0 ? 0 : 1;
}
