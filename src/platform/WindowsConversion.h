// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_PLATFORM_WINDOWSCONVERSION_H
#define LAMCRAFT_PLATFORM_WINDOWSCONVERSION_H

#include <cwchar>
#include <locale>

namespace lamcraft::platform {

/// Wide characters to bytes in the code page of the standard output, as it is when the text is
/// written: the console's where it is a console, else that of Windows. What the code page lacks is
/// replaced by Windows. For output alone: reading answers an error.
class ConsoleConversion : public std::codecvt<wchar_t, char, std::mbstate_t> {
 protected:
  result do_out(std::mbstate_t& state,
                const wchar_t* from,
                const wchar_t* fromEnd,
                const wchar_t*& fromNext,
                char* to,
                char* toEnd,
                char*& toNext) const override;
  result do_in(std::mbstate_t& state,
               const char* from,
               const char* fromEnd,
               const char*& fromNext,
               wchar_t* to,
               wchar_t* toEnd,
               wchar_t*& toNext) const override;
  result do_unshift(std::mbstate_t& state, char* to, char* toEnd, char*& toNext) const override;
  int do_encoding() const noexcept override;
  bool do_always_noconv() const noexcept override;
  int do_length(std::mbstate_t& state,
                const char* from,
                const char* fromEnd,
                std::size_t count) const override;
  int do_max_length() const noexcept override;
};

/// The same for narrow text in the code page of Windows, which stays as it is where the output has
/// that one too.
class NarrowConsoleConversion : public std::codecvt<char, char, std::mbstate_t> {
 protected:
  result do_out(std::mbstate_t& state,
                const char* from,
                const char* fromEnd,
                const char*& fromNext,
                char* to,
                char* toEnd,
                char*& toNext) const override;
  int do_encoding() const noexcept override;
  bool do_always_noconv() const noexcept override;
  int do_max_length() const noexcept override;
};

}  // namespace lamcraft::platform

#endif
