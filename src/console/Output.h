// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_CONSOLE_OUTPUT_H
#define LAMCRAFT_CONSOLE_OUTPUT_H

#include <cstdint>
#include <mutex>
#include <string_view>
#include <type_traits>

namespace lamcraft::console {

/// One stretch of console output, whole lines as a rule:
///
///     Output().message(kInitialMechanicalError).text("    ").number(error).endLine();
///
/// Translated and plain texts go to the wide and to the narrow standard output; they appear in the
/// order of the calls, since the stream that is left is flushed first. An Output holds the console
/// for as long as it lives, so lines of several threads never mix; a thread that already has one
/// must not make another. Never throws for a stream that cannot be written.
class Output {
 public:
  Output();
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;
  ~Output() = default;

  /// Writes the translation of `key` (a constant of console/Messages.h) in the catalogue of the
  /// global locale, or `key` itself where there is none. Wide.
  Output& message(const wchar_t* key);

  /// Writes wide text as it is.
  Output& wide(std::wstring_view text);

  /// Writes narrow text on the wide stream, each byte as the character that the stream's locale
  /// makes of it alone; a question mark where it makes none.
  Output& widened(std::string_view text);

  /// Writes narrow text, its bytes unchanged.
  Output& text(std::string_view text);

  /// Writes a number as the user's locale shows it, see display(). Narrow.
  Output& number(double value);
  template <typename Integer, std::enable_if_t<std::is_integral_v<Integer>, bool> = true>
  Output& number(Integer value) {
    return integer(static_cast<std::int64_t>(value));
  }

  /// The same, wide.
  Output& wideNumber(double value);
  template <typename Integer, std::enable_if_t<std::is_integral_v<Integer>, bool> = true>
  Output& wideNumber(Integer value) {
    return wideInteger(static_cast<std::int64_t>(value));
  }

  /// Ends the line on the stream written last, by whomever, and flushes it.
  Output& endLine();

 private:
  Output& integer(std::int64_t value);
  Output& wideInteger(std::int64_t value);

  std::lock_guard<std::mutex> lock_;
};

}  // namespace lamcraft::console

#endif
