#include "platform/StagedFile.h"

#include <utility>

#include "platform/FileSystem.h"

namespace lamcraft::platform {

namespace {

/// How many names of parts are tried: far more than killed processes may have left. Trying one
/// takes microseconds.
constexpr int kNames = 100000;

std::string partName(const std::string& path, const int number) {
  return path + ".part" + (number == 1 ? std::string() : std::to_string(number));
}

/// Creates a part beside the file at `path`; answers no name where that cannot be.
std::string newPart(const std::string& path) {
  for (int number = 1; number <= kNames; ++number) {
    std::string name = partName(path, number);
    const Creation creation = createFile(name);
    if (creation == Creation::done) {
      return name;
    }
    if (creation == Creation::failed) {
      break;
    }
  }
  return {};
}

}  // namespace

StagedFile::StagedFile(std::string path) : path_(std::move(path)), target_(fileBehind(path_)) {}

StagedFile::~StagedFile() {
  discard();
}

bool StagedFile::create() {
  discard();
  part_ = newPart(target_);
  // The folder that a link leads to may take no new file, though the old one there may be written.
  if (part_.empty() && target_ != path_) {
    part_ = newPart(path_);
  }
  return !part_.empty();
}

void StagedFile::discard() {
  if (!part_.empty()) {
    removeFile(part_);
  }
  part_.clear();
}

bool StagedFile::removeOld() const {
  if (!part_.empty()) {
    copyAccess(target_, part_);
  }
  return removeFile(target_);
}

bool StagedFile::commit() {
  if (part_.empty()) {
    return false;
  }
  copyAccess(target_, part_);
  if (replaceFile(part_, target_)) {
    part_.clear();
    return true;
  }
  const bool isDone = overwriteFile(part_, target_);
  discard();
  return isDone;
}

}  // namespace lamcraft::platform
