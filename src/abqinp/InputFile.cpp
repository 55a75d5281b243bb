#include "abqinp/InputFile.h"

#include <cstddef>
#include <fstream>
#include <limits>
#include <locale>
#include <stdexcept>

#include "abqinp/DeckParser.h"
#include "abqinp/LineReader.h"
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

/// 0 where there is no size to know, as of a pipe. The file is at its start afterwards.
std::size_t sizeOf(std::ifstream& file) {
  file.seekg(0, std::ios::end);
  const std::streamoff size = file.tellg();
  file.clear();
  file.seekg(0);
  file.clear();
  return size < 0 ? 0 : static_cast<std::size_t>(size);
}

}  // namespace

void InputFile::read(const std::string& path) {
  if (!lamcraft::platform::hasAnEnd(path)) {
    throw couldNotOpen(path);
  }
  auto file = opened<std::ifstream>(path);
  DeckParser parser;
  parser.expect(sizeOf(file));
  LineReader lines(file);
  std::string_view line;
  while (lines.next(line)) {
    parser.addLine(line);
  }
  if (file.bad()) {  // a folder opens but does not read
    throw couldNotOpen(path);
  }
  blocks_ = parser.finish();
  restart();
}

void InputFile::restart() noexcept {
  place_ = DeckBlocks::Place();
  isAtBlock_ = false;
}

bool InputFile::nextKeyword() {
  isAtBlock_ = blocks_.next(place_, current_);
  if (isAtBlock_) {
    requireIndex(place_.keywords + place_.comments - 1);
  }
  return isAtBlock_;
}

void InputFile::write(const std::string& path, const bool inWrittenOrder) const {
  auto file = opened<std::ofstream>(path);
  blocks_.write(file, inWrittenOrder);
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
