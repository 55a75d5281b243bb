// SPDX-License-Identifier: BSD-3-Clause
#include "console/Format.h"

#include <iomanip>
#include <mutex>
#include <sstream>

#include <boost/locale.hpp>

namespace lamcraft::console {

namespace {

/// Carries the list separator in a locale, so that it changes hands with the locale and needs no
/// variable of its own.
class ListSeparator : public std::locale::facet {
 public:
  static std::locale::id id;

  explicit ListSeparator(std::string text) : text_(std::move(text)) {}
  [[nodiscard]] const std::string& text() const { return text_; }

 private:
  std::string text_;
};

std::locale::id ListSeparator::id;

/// A stream set up for localized numbers. Making one costs far more than writing a number, so one
/// serves all threads. Not one for each: mingw frees the memory of a thread's variables before it
/// destroys them.
template <typename Char>
class NumberStream {
 public:
  NumberStream() { stream_ << std::right << boost::locale::as::number; }

  NumberStream(std::ios_base::fmtflags floatFormat, std::streamsize precision, const int width)
      : NumberStream() {
    width_ = width;
    stream_.setf(floatFormat, std::ios_base::floatfield);
    stream_.precision(precision);
  }

  template <typename Number>
  std::basic_string<Char> write(Number value) {
    const std::lock_guard lock(mutex_);
    if (const std::locale current; stream_.getloc() != current) {
      stream_.imbue(current);
    }
    stream_.str({});
    stream_ << std::setw(width_) << value;
    return stream_.str();
  }

 private:
  std::mutex mutex_;
  std::basic_ostringstream<Char> stream_;
  int width_ = 0;
};

template <typename Char, typename Number>
std::basic_string<Char> displayed(Number value) {
  static NumberStream<Char> stream;
  return stream.write(value);
}

}  // namespace

std::string listSeparator() {
  const std::locale current;
  return std::has_facet<ListSeparator>(current) ? std::use_facet<ListSeparator>(current).text()
                                                : ", ";
}

std::locale withListSeparator(const std::locale& base, const std::string_view userLocaleName) {
  const bool isGerman = userLocaleName == "German_Germany.1252" || userLocaleName == "de_DE.UTF-8";
  return {base, new ListSeparator(isGerman ? "; " : ", ")};  // owned by the locale
}

std::string scientific(const double value) {
  static NumberStream<char> stream(std::ios_base::scientific, 3, 10);
  return stream.write(value);
}

std::string display(const double value) {
  return displayed<char>(value);
}

std::string display(const std::int64_t value) {
  return displayed<char>(value);
}

std::wstring wideDisplay(const double value) {
  return displayed<wchar_t>(value);
}

std::wstring wideDisplay(const std::int64_t value) {
  return displayed<wchar_t>(value);
}

}  // namespace lamcraft::console
