// SPDX-License-Identifier: BSD-3-Clause
#include "platform/WindowsConversion.h"

#include <windows.h>

#include <array>
#include <string>

#include "platform/WindowsText.h"

namespace lamcraft::platform {

namespace {

constexpr int kLongestCharacter = 8;  // bytes; GB18030 and UTF-8 need four

UINT outputCodePage() {
  DWORD mode = 0;
  const bool isConsole = GetConsoleMode(GetStdHandle(STD_OUTPUT_HANDLE), &mode) != 0;
  return isConsole ? GetConsoleOutputCP() : GetACP();
}

/// Number of units of the character at `from`: two for a surrogate pair.
int unitsOf(const wchar_t* from, const wchar_t* fromEnd) {
  return IS_HIGH_SURROGATE(*from) && from + 1 != fromEnd && IS_LOW_SURROGATE(from[1]) ? 2 : 1;
}

}  // namespace

std::codecvt_base::result ConsoleConversion::do_out(std::mbstate_t& /*state*/,
                                                    const wchar_t* from,
                                                    const wchar_t* fromEnd,
                                                    const wchar_t*& fromNext,
                                                    char* to,
                                                    char* toEnd,
                                                    char*& toNext) const {
  const UINT codePage = outputCodePage();
  fromNext = from;
  toNext = to;
  while (fromNext != fromEnd) {
    const int units = unitsOf(fromNext, fromEnd);
    std::array<char, kLongestCharacter> bytes{};
    const int size = WideCharToMultiByte(
        codePage, 0, fromNext, units, bytes.data(), kLongestCharacter, nullptr, nullptr);
    if (size <= 0) {
      return error;
    }
    if (toEnd - toNext < size) {
      return partial;
    }
    for (int i = 0; i < size; ++i) {
      *toNext++ = bytes[static_cast<std::size_t>(i)];
    }
    fromNext += units;
  }
  return ok;
}

std::codecvt_base::result ConsoleConversion::do_in(std::mbstate_t& /*state*/,
                                                   const char* from,
                                                   const char* /*fromEnd*/,
                                                   const char*& fromNext,
                                                   wchar_t* to,
                                                   wchar_t* /*toEnd*/,
                                                   wchar_t*& toNext) const {
  fromNext = from;
  toNext = to;
  return error;
}

std::codecvt_base::result ConsoleConversion::do_unshift(std::mbstate_t& /*state*/,
                                                        char* to,
                                                        char* /*toEnd*/,
                                                        char*& toNext) const {
  toNext = to;
  return noconv;
}

int ConsoleConversion::do_encoding() const noexcept {
  return 0;
}

bool ConsoleConversion::do_always_noconv() const noexcept {
  return false;
}

int ConsoleConversion::do_length(std::mbstate_t& /*state*/,
                                 const char* /*from*/,
                                 const char* /*fromEnd*/,
                                 std::size_t /*count*/) const {
  return 0;
}

int ConsoleConversion::do_max_length() const noexcept {
  return kLongestCharacter;
}

std::codecvt_base::result NarrowConsoleConversion::do_out(std::mbstate_t& /*state*/,
                                                          const char* from,
                                                          const char* fromEnd,
                                                          const char*& fromNext,
                                                          char* to,
                                                          char* toEnd,
                                                          char*& toNext) const {
  const UINT codePage = outputCodePage();
  fromNext = from;
  toNext = to;
  if (codePage == GetACP() || from == fromEnd) {
    return noconv;
  }
  const std::wstring text = widened(std::string(from, fromEnd));
  const int size = WideCharToMultiByte(codePage,
                                       0,
                                       text.data(),
                                       static_cast<int>(text.size()),
                                       to,
                                       static_cast<int>(toEnd - to),
                                       nullptr,
                                       nullptr);
  if (size <= 0) {
    return error;
  }
  fromNext = fromEnd;
  toNext = to + size;
  return ok;
}

int NarrowConsoleConversion::do_encoding() const noexcept {
  return 0;
}

bool NarrowConsoleConversion::do_always_noconv() const noexcept {
  return false;
}

int NarrowConsoleConversion::do_max_length() const noexcept {
  return kLongestCharacter;
}

}  // namespace lamcraft::platform
