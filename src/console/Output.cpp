// SPDX-License-Identifier: BSD-3-Clause
#include "console/Output.h"

#include <iostream>

#include <boost/locale.hpp>

#include "console/Format.h"

namespace lamcraft::console {

namespace {

enum class Side { narrow, wide };

/// What all Outputs share: the lock, and the stream that holds the latest text.
struct Terminal {
  std::mutex mutex;
  Side side = Side::narrow;
};

Terminal& terminal() {
  static Terminal theTerminal;
  return theTerminal;
}

/// Flushes the other stream when the text changes sides. A stream that failed is set right again:
/// one lost text must not silence those that follow.
void switchTo(Side side) {
  if (terminal().side != side) {
    if (side == Side::wide) {
      std::cout.flush();
    } else {
      std::wcout.flush();
    }
    terminal().side = side;
  }
  std::cout.clear();
  std::wcout.clear();
}

}  // namespace

Output::Output() : lock_(terminal().mutex) {}

Output& Output::message(const wchar_t* key) {
  return wide(boost::locale::gettext(key, std::locale()));
}

Output& Output::wide(std::wstring_view text) {
  switchTo(Side::wide);
  std::wcout << text;
  return *this;
}

Output& Output::widened(const std::string_view text) {
  std::wstring characters;
  for (const char byte : text) {
    characters += std::wcout.widen(byte);
  }
  return wide(characters);
}

Output& Output::text(const std::string_view text) {
  switchTo(Side::narrow);
  std::cout << text;
  return *this;
}

Output& Output::number(const double value) {
  return text(display(value));
}

Output& Output::integer(const std::int64_t value) {
  return text(display(value));
}

Output& Output::wideNumber(const double value) {
  return wide(wideDisplay(value));
}

Output& Output::wideInteger(const std::int64_t value) {
  return wide(wideDisplay(value));
}

Output& Output::endLine() {
  if (terminal().side == Side::wide) {
    std::wcout.clear();
    std::wcout << std::endl;
  } else {
    std::cout.clear();
    std::cout << std::endl;
  }
  return *this;
}

}  // namespace lamcraft::console
