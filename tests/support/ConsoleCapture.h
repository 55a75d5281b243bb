// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_SUPPORT_CONSOLECAPTURE_H
#define LAMCRAFT_TESTS_SUPPORT_CONSOLECAPTURE_H

#include <iostream>
#include <sstream>
#include <string>

namespace lamcraft::test {

/// A stream buffer that, like the standard output's, shows its text when it is flushed and not
/// before.
template <typename Char>
class FlushedBuffer : public std::basic_stringbuf<Char> {
 public:
  /// `shown` gets the low byte of each character.
  explicit FlushedBuffer(std::string& shown) : shown_(shown) {}

  /// Makes the next text fail, as one does that has no bytes in the stream's encoding.
  void failOnce() { fails_ = true; }

 protected:
  // NOLINTBEGIN(readability-identifier-naming): the standard library's names
  int sync() override {
    for (const Char character : this->str()) {
      shown_ += static_cast<char>(character);
    }
    this->str({});
    return 0;
  }
  std::streamsize xsputn(const Char* text, std::streamsize size) override {
    if (!fails_) {
      return std::basic_stringbuf<Char>::xsputn(text, size);
    }
    fails_ = false;
    return 0;
  }
  // NOLINTEND(readability-identifier-naming)

 private:
  std::string& shown_;
  bool fails_ = false;
};

/// Takes the place of the console behind the narrow and the wide standard output for as long as it
/// lives. What it shows is what a terminal would: flushed text in the order of the flushes. Texts
/// are ASCII.
class ConsoleCapture {
 public:
  ConsoleCapture()
      : narrowBefore_(std::cout.rdbuf(&narrow_)), wideBefore_(std::wcout.rdbuf(&wide_)) {}
  ConsoleCapture(const ConsoleCapture&) = delete;
  ConsoleCapture& operator=(const ConsoleCapture&) = delete;
  ~ConsoleCapture() {
    std::cout.rdbuf(narrowBefore_);
    std::wcout.rdbuf(wideBefore_);
  }

  [[nodiscard]] const std::string& shown() const { return shown_; }
  FlushedBuffer<char>& narrow() { return narrow_; }
  FlushedBuffer<wchar_t>& wide() { return wide_; }

 private:
  std::string shown_;
  FlushedBuffer<char> narrow_{shown_};
  FlushedBuffer<wchar_t> wide_{shown_};
  std::streambuf* narrowBefore_;
  std::wstreambuf* wideBefore_;
};

}  // namespace lamcraft::test

#endif
