// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_DATAFILE_GERMANLOCALE_H
#define LAMCRAFT_TESTS_DATAFILE_GERMANLOCALE_H

#include <clocale>
#include <cstdio>
#include <locale>
#include <stdexcept>
#include <string>

namespace lamcraft {

/// Makes German the locale of C and C++ as long as it lives.
class GermanLocale {
 public:
  GermanLocale() {
    try {
      std::locale::global(std::locale("de_DE.UTF-8"));  // sets the locale of C too
    } catch (const std::runtime_error&) {
      std::setlocale(LC_ALL, "German");  // a C++ library that knows no names; C's still may
    }
  }
  ~GermanLocale() {
    std::locale::global(before_);
    std::setlocale(LC_ALL, "C");
  }
  GermanLocale(const GermanLocale&) = delete;
  GermanLocale& operator=(const GermanLocale&) = delete;

  /// What the C library makes of a number: with a comma where the locale is in force.
  [[nodiscard]] std::string printed(const double value) const {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.1f", value);
    return buffer;
  }

 private:
  std::locale before_;
};

}  // namespace lamcraft

#endif
