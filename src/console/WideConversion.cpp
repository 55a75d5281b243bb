// SPDX-License-Identifier: BSD-3-Clause
#include "console/WideConversion.h"

#include <array>
#include <cwchar>

#include <boost/locale/utf8_codecvt.hpp>

namespace lamcraft::console {

namespace {

using Conversion = std::codecvt<wchar_t, char, std::mbstate_t>;

/// Another locale's conversion, with a question mark for what it refuses.
class SteadyConversion : public Conversion {
 public:
  explicit SteadyConversion(const std::locale& source)
      : source_(source), inner_(std::use_facet<Conversion>(source_)) {}

 protected:
  // Names of the standard library.
  // NOLINTBEGIN(readability-identifier-naming)
  result do_out(std::mbstate_t& state,
                const wchar_t* from,
                const wchar_t* fromEnd,
                const wchar_t*& fromNext,
                char* to,
                char* toEnd,
                char*& toNext) const override {
    fromNext = from;
    toNext = to;
    while (true) {
      from = fromNext;
      to = toNext;
      const result answer = inner_.out(state, from, fromEnd, fromNext, to, toEnd, toNext);
      if (answer != error) {
        return answer;
      }
      if (toNext == toEnd) {
        return partial;
      }
      *toNext++ = '?';
      ++fromNext;
      state = std::mbstate_t();
    }
  }
  result do_in(std::mbstate_t& state,
               const char* from,
               const char* fromEnd,
               const char*& fromNext,
               wchar_t* to,
               wchar_t* toEnd,
               wchar_t*& toNext) const override {
    return inner_.in(state, from, fromEnd, fromNext, to, toEnd, toNext);
  }
  result do_unshift(std::mbstate_t& state, char* to, char* toEnd, char*& toNext) const override {
    return inner_.unshift(state, to, toEnd, toNext);
  }
  int do_encoding() const noexcept override { return inner_.encoding(); }
  bool do_always_noconv() const noexcept override { return inner_.always_noconv(); }
  int do_length(std::mbstate_t& state,
                const char* from,
                const char* fromEnd,
                const std::size_t count) const override {
    return inner_.length(state, from, fromEnd, count);
  }
  int do_max_length() const noexcept override { return inner_.max_length(); }
  // NOLINTEND(readability-identifier-naming)

 private:
  std::locale source_;  ///< keeps inner_ alive
  const Conversion& inner_;
};

bool converts(const Conversion& conversion, wchar_t character) {
  std::mbstate_t state{};
  std::array<char, 16> bytes{};
  const wchar_t* fromNext = nullptr;
  char* toNext = nullptr;
  return conversion.out(state,
                        &character,
                        &character + 1,
                        fromNext,
                        bytes.data(),
                        bytes.data() + bytes.size(),
                        toNext) == std::codecvt_base::ok;
}

/// Whether the conversion of a locale has letters of any script besides ASCII: Latin, Greek,
/// Cyrillic, Hebrew, Arabic, Thai, Hiragana, Han.
bool convertsLetters(const std::locale& locale) {
  const auto& conversion = std::use_facet<Conversion>(locale);
  for (const wchar_t letter : L"\u00e4\u0103\u03b1\u044f\u05d0\u0627\u0e01\u3042\u6c34") {
    if (letter != L'\0' && converts(conversion, letter)) {
      return true;
    }
  }
  return false;
}

}  // namespace

std::locale withSteadyConversion(const std::locale& base) {
  const std::locale source =
      convertsLetters(base) ? base : std::locale(base, new boost::locale::utf8_codecvt<wchar_t>);
  return {base, new SteadyConversion(source)};  // facets are owned by their locale
}

}  // namespace lamcraft::console
