// SPDX-License-Identifier: BSD-3-Clause
#include "material/WholeFile.h"

#include "platform/FileSystem.h"

namespace lamcraft {

namespace {

using platform::Answer;

/// A file that is removed unless it takes the place of another.
class Part {
 public:
  explicit Part(std::string target) : target_(std::move(target)) {
    int number = 1;
    do {
      name_ = target_ + ".part" + (number == 1 ? "" : std::to_string(number));
      creation_ = platform::createFile(name_);
      ++number;
    } while (creation_ == Answer::exists);
  }
  Part(const Part&) = delete;
  Part& operator=(const Part&) = delete;
  ~Part() {
    if (creation_ == Answer::done) {
      platform::removeFile(name_);
    }
  }

  [[nodiscard]] const std::string& name() const noexcept { return name_; }
  [[nodiscard]] Answer creation() const noexcept { return creation_; }

  Answer takePlace() {
    const Answer replacement = platform::replaceFile(name_, target_);
    if (replacement == Answer::done) {
      creation_ = Answer::failed;  // there is no part any more
    }
    return replacement;
  }

 private:
  std::string target_;
  std::string name_;
  Answer creation_ = Answer::failed;
};

/// `denied` when the file may still be written in its place.
Answer writeBeside(const std::string& path, const FileWriter& write) {
  Part part(platform::fileBehind(path));
  if (part.creation() != Answer::done) {
    return part.creation();
  }
  return write(part.name()) ? part.takePlace() : Answer::failed;
}

}  // namespace

bool writeWhole(const std::string& path, const FileWriter& write) {
  if (!platform::mayWrite(path)) {
    return false;
  }
  const Answer answer = writeBeside(path, write);
  return answer == Answer::denied ? write(path) : answer == Answer::done;
}

}  // namespace lamcraft
