// SPDX-License-Identifier: BSD-3-Clause
// A run of the program on any bytes as its deck, from the deck to the data files, in this process
// and with the stand-in library. Every run ends with an exit code, and files that it has written
// are whole.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <streambuf>
#include <string>

#include <tinyxml.h>

#include "driver/FailureReports.h"
#include "fuzz/Files.h"
#include "fuzz/Target.h"
#include "material/Material.h"
#include "support/TemporaryFolder.h"

namespace lamcraft::fuzz {
namespace {

/// Takes all that is printed, and forgets it.
template <typename Char>
class Silence : public std::basic_streambuf<Char> {
 protected:
  using Int = typename std::basic_streambuf<Char>::int_type;
  // NOLINTBEGIN(readability-identifier-naming): the standard library's names
  Int overflow(const Int character) override { return std::char_traits<Char>::not_eof(character); }
  std::streamsize xsputn(const Char* /*text*/, const std::streamsize size) override { return size; }
  // NOLINTEND(readability-identifier-naming)
};

/// Silences the console as long as it lives. The streams flush once more when the process ends, so
/// they get their own buffers back.
class SilentConsole {
 public:
  SilentConsole() : ownNarrow_(std::cout.rdbuf(&narrow_)), ownWide_(std::wcout.rdbuf(&wide_)) {}
  SilentConsole(const SilentConsole&) = delete;
  SilentConsole& operator=(const SilentConsole&) = delete;
  ~SilentConsole() {
    std::cout.rdbuf(ownNarrow_);
    std::wcout.rdbuf(ownWide_);
  }

 private:
  Silence<char> narrow_;
  Silence<wchar_t> wide_;
  std::streambuf* ownNarrow_;
  std::wstreambuf* ownWide_;
};

/// Any of the stand-in's answers to a shear curve; the same for the same input.
void choosePrefailAnswer(const std::size_t size) {
  static const char* const kAnswers[] = {"0", "1", "2"};
  static std::size_t last = std::size(kAnswers);
  if (const std::size_t next = size % std::size(kAnswers); next != last) {
    setenv("KXFAKE_PREFAIL", kAnswers[next], 1);
    last = next;
  }
}

/// Whether the deck's bytes may stand in a data file as they are. Data files are declared as UTF-8,
/// and what the deck has in another encoding makes no XML.
bool isAscii(const std::string& text) {
  return std::all_of(
      text.begin(), text.end(), [](const char c) { return static_cast<unsigned char>(c) < 0x80; });
}

void requireWhole(const std::string& content, const bool isXml) {
  require(content.size() > 2 && content.compare(content.size() - 2, 2, ">\n") == 0,
          "a data file ends with a tag and a line feed");
  if (isXml) {
    TiXmlDocument document;
    document.Parse(content.c_str());
    require(!document.Error() && document.RootElement() != nullptr, "a data file is well-formed");
  }
}

/// Reads and creates as the program does; true when the run ends as a success.
bool runDeck(const std::string& deck, const std::string& results) {
  Material material;
  material.setResultsDirectory(results);
  return driver::runParse([&] { material.read(deck); }) == driver::ExitCode::success &&
         driver::runCreate([&] { material.create(); }) == driver::ExitCode::success;
}

void run(const std::string& text) {
  static const test::TemporaryFolder folder;
  static const std::string deck = folder.file("deck.qdk");
  static const std::string results = folder.file("results");
  static const std::array<std::string, 2> dataFiles{results + "/mdata.xml", results + "/fdata.xml"};
  static const std::string deckCopy = results + "/input.qdk";
  choosePrefailAnswer(text.size());
  File(deck, "wb").write(text);
  const bool succeeded = runDeck(deck, results);
  for (const std::string& path : dataFiles) {
    if (File file(path, "rb"); file.isOpen()) {
      require(succeeded, "a run that fails writes no data file");
      requireWhole(file.content(), isAscii(text));
      std::remove(path.c_str());
    }
  }
  std::remove(deckCopy.c_str());
}

}  // namespace
}  // namespace lamcraft::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* const data, const std::size_t size) {
  static const lamcraft::fuzz::SilentConsole silence;  // from the first input on
  lamcraft::fuzz::run(std::string(data, data + size));
  return 0;
}
