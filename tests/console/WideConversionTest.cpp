// SPDX-License-Identifier: BSD-3-Clause
#include "console/WideConversion.h"

#include <array>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace lamcraft::console {
namespace {

/// The bytes that a wide file stream makes of a text under a locale with the steady conversion.
std::string written(const std::locale& base, const std::wstring& text) {
  const test::TemporaryFolder folder;
  std::wofstream stream;
  stream.imbue(withSteadyConversion(base));
  stream.open(folder.file("text"), std::ios::binary);
  stream << text << std::flush;
  EXPECT_TRUE(stream.good());
  return test::contentOf(folder.file("text"));
}

/// A conversion of one byte a character, that refuses what is above `last`: ASCII, or Latin.
class Latin : public std::codecvt<wchar_t, char, std::mbstate_t> {
 public:
  explicit Latin(wchar_t last = L'\xff') : last_(last) {}

 protected:
  // NOLINTBEGIN(readability-identifier-naming): the standard library's names
  result do_out(std::mbstate_t& /*state*/,
                const wchar_t* from,
                const wchar_t* fromEnd,
                const wchar_t*& fromNext,
                char* to,
                char* toEnd,
                char*& toNext) const override {
    fromNext = from;
    toNext = to;
    for (; fromNext != fromEnd; ++fromNext) {
      if (*fromNext > last_) {
        return error;
      }
      if (toNext == toEnd) {
        return partial;
      }
      *toNext++ = static_cast<char>(static_cast<unsigned char>(*fromNext));
    }
    return ok;
  }
  int do_encoding() const noexcept override { return 1; }
  bool do_always_noconv() const noexcept override { return false; }
  int do_max_length() const noexcept override { return 1; }
  // NOLINTEND(readability-identifier-naming)

 private:
  wchar_t last_;
};

/// A locale that knows ASCII alone, as "C" does here; Windows' takes all of Latin.
std::locale ascii() {
  return {std::locale::classic(), new Latin(L'\x7f')};
}

const std::wstring kFibre = L"Faser \u03b1 \u00fc \u7e4a\u7dad";
const std::string kFibreUtf8 = "Faser \xce\xb1 \xc3\xbc \xe7\xb9\x8a\xe7\xb6\xad";

TEST(WideConversion, LocaleThatKnowsAsciiAloneWritesUtf8) {
  EXPECT_EQ(written(ascii(), kFibre), kFibreUtf8);
}

TEST(WideConversion, EncodingOfTheLocaleIsKept) {
  EXPECT_EQ(written(std::locale(std::locale::classic(), new Latin), L"\u00fcber"),
            "\xfc"
            "ber");
}

TEST(WideConversion, CharacterWithoutAPlaceBecomesAQuestionMark) {
  EXPECT_EQ(written(std::locale(std::locale::classic(), new Latin), L"\u03b1-\u00fc-\u7e4a\u7dad"),
            "?-\xfc-??");
}

TEST(WideConversion, LoneSurrogateBecomesAQuestionMark) {
  EXPECT_EQ(written(ascii(), std::wstring{L'a', wchar_t{0xdc00}, L'\u00fc'}), "a?\xc3\xbc");
}

TEST(WideConversion, TextLongerThanTheStreamsBufferArrivesWhole) {
  std::wstring text;
  std::string latin;
  std::string utf8;
  for (int i = 0; i < 20000; ++i) {
    text += L"\u00fc\u03b1x";
    latin += "\xfc?x";
    utf8 += "\xc3\xbc\xce\xb1x";
  }
  EXPECT_EQ(written(std::locale(std::locale::classic(), new Latin), text), latin);
  EXPECT_EQ(written(ascii(), text), utf8);
}

TEST(WideConversion, ReadsWhatItWrites) {
  const test::TemporaryFolder folder;
  folder.write("text", written(ascii(), kFibre));
  std::wifstream stream;
  stream.imbue(withSteadyConversion(ascii()));
  stream.open(folder.file("text"), std::ios::binary);
  std::wstring text;
  std::getline(stream, text);
  EXPECT_EQ(text, kFibre);
}

TEST(WideConversion, CountsAsTheConversionOfTheLocaleDoes) {
  const std::locale latin(std::locale::classic(), new Latin);
  using Conversion = std::codecvt<wchar_t, char, std::mbstate_t>;
  const auto& theirs = std::use_facet<Conversion>(latin);
  const std::locale steady = withSteadyConversion(latin);
  const auto& ours = std::use_facet<Conversion>(steady);
  EXPECT_EQ(ours.encoding(), theirs.encoding());
  EXPECT_EQ(ours.max_length(), theirs.max_length());
  EXPECT_EQ(ours.always_noconv(), theirs.always_noconv());
  const std::string text = "abc";
  std::mbstate_t ourState{};
  std::mbstate_t theirState{};
  EXPECT_EQ(ours.length(ourState, text.data(), text.data() + text.size(), 2),
            theirs.length(theirState, text.data(), text.data() + text.size(), 2));
  char byte = 0;
  char* end = nullptr;
  EXPECT_EQ(ours.unshift(ourState, &byte, &byte + 1, end),
            theirs.unshift(theirState, &byte, &byte + 1, end));
}

}  // namespace
}  // namespace lamcraft::console
