#include "platform/StagedFile.h"

#include <utility>

#include "platform/FileSystem.h"

namespace lamcraft::platform {

namespace {

/// How many names of parts are tried: as many as killed processes may have left.
constexpr int kNames = 1000;

std::string partName(const std::string& path, const int number) {
  return path + ".part" + (number == 1 ? std::string() : std::to_string(number));
}

}  // namespace

StagedFile::StagedFile(std::string path) : path_(std::move(path)), target_(fileBehind(path_)) {}

StagedFile::~StagedFile() {
  discard();
}

bool StagedFile::create() {
  discard();
  for (int number = 1; number <= kNames; ++number) {
    std::string name = partName(target_, number);
    const Creation creation = createFile(name);
    if (creation == Creation::done) part_ = std::move(name);
    if (creation != Creation::taken) break;
  }
  return !part_.empty();
}

void StagedFile::discard() {
  if (!part_.empty()) removeFile(part_);
  part_.clear();
}

bool StagedFile::removeOld() const {
  if (!part_.empty()) copyAccess(target_, part_);
  return removeFile(target_);
}

bool StagedFile::commit() {
  if (part_.empty()) return false;
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
