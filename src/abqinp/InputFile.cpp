// SPDX-License-Identifier: BSD-3-Clause
#include "abqinp/InputFile.h"

#include <algorithm>
#include <fstream>
#include <limits>
#include <locale>
#include <stdexcept>

#include "abqinp/DeckParser.h"
#include "platform/FileSystem.h"

namespace abqinp {
namespace {

std::runtime_error couldNotOpen(const std::string& path) {
  return std::runtime_error("Could not open file " + path);
}

/// Opens a file whose bytes no locale converts.
template <typename Stream>
Stream opened(const std::string& path) {
  Stream file;
  file.imbue(std::locale::classic());
  file.open(path, std::ios::binary);
  if (!file) {
    throw couldNotOpen(path);
  }
  return file;
}

}  // namespace

void InputFile::read(const std::string& path) {
  if (lamcraft::platform::isEndless(path)) {
    throw couldNotOpen(path);
  }
  auto file = opened<std::ifstream>(path);
  file.exceptions(std::ios::badbit);  // else a line beyond memory would look like the end
  DeckParser parser;
  try {
    for (std::string line; std::getline(file, line);) {
      parser.addLine(line);
    }
  } catch (const std::ios::failure&) {  // a folder opens but does not read
    throw couldNotOpen(path);
  }
  keywords_ = parser.finish();
  restart();
}

void InputFile::restart() noexcept {
  index_ = -1;
  current_ = nullptr;
}

bool InputFile::nextKeyword() {
  current_ = nullptr;
  ++index_;
  const auto index = static_cast<std::uint64_t>(index_);
  if (index >= keywords_.size()) {
    return false;
  }
  requireIndex(index);
  current_ = &keywords_[index];
  return true;
}

std::size_t InputFile::countKeywords(const std::string_view name) const {
  const auto hasName = [&](const Keyword& keyword) { return keyword.name() == name; };
  const auto count = std::count_if(keywords_.begin(), keywords_.end(), hasName);
  return static_cast<std::size_t>(count);
}

void InputFile::write(const std::string& path, const bool inWrittenOrder) const {
  auto file = opened<std::ofstream>(path);
  for (const Keyword& keyword : keywords_) {
    file << keyword.toText(inWrittenOrder);
  }
  file.close();
  if (!file) {
    throw std::runtime_error("Could not write file " + path);
  }
}

void InputFile::requireIndex(const std::uint64_t index) {
  if (index > static_cast<std::uint64_t>(std::numeric_limits<std::int32_t>::max())) {
    throw std::out_of_range("Keyword index out of range");
  }
}

}  // namespace abqinp
