// SPDX-License-Identifier: BSD-3-Clause
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <thread>

#include "console/Format.h"
#include "console/Messages.h"
#include "console/Output.h"
#include "driver/Localization.h"

// A program for the localization tests: sets its locale up as lamcraft does, and prints what its
// argument names. Streams and the environment's locale belong to a process, so each case needs one.
//   localization_probe installation|umlauts|numbers|files|threads
//   localization_probe messages TEMPLATE      every message of a catalogue template, translated

namespace lamcraft {
namespace {

using console::Output;

void showInstallation() {
  Output().text(driver::installedLocalePath()).endLine();
}

void showUmlauts() {
  Output().message(console::kInputsInvalid).endLine();
}

void showNumbers() {
  Output()
      .text(console::scientific(150000.0))
      .text(console::listSeparator())
      .number(1234567)
      .text(" ")
      .number(0.5)
      .endLine();
}

/// Numbers as decks and data files have them.
void showFileNumbers() {
  std::array<char, 32> written{};
  std::snprintf(written.data(), written.size(), "%.2f", std::strtod("2.5", nullptr));
  std::ostringstream stream;
  stream.precision(8);
  stream << std::stod("1.5") << ' ' << written.data() << ' ' << 1234567.5;
  Output().text(stream.str()).endLine();
}

void showThreads() {
  const auto writeLines = [](const char* name) {
    for (int line = 0; line < 200; ++line) {
      Output().message(console::kFatigueIterations).text(name).wide(L" ").number(0.5).endLine();
    }
  };
  std::thread monitor(writeLines, " monitor");
  writeLines(" main");
  monitor.join();
}

/// The messages of a template, one a line.
void showMessages(const char* file) {
  std::ifstream stream(file);
  const std::string label = "msgid \"";
  for (std::string line; std::getline(stream, line);) {
    if (line.rfind(label, 0) != 0 || line == label + "\"") {
      continue;
    }
    const std::string key = line.substr(label.size(), line.rfind('"') - label.size());
    Output().message(std::wstring(key.begin(), key.end()).c_str()).endLine();
  }
}

const std::map<std::string, std::function<void()>> kShows{{"installation", showInstallation},
                                                          {"umlauts", showUmlauts},
                                                          {"numbers", showNumbers},
                                                          {"files", showFileNumbers},
                                                          {"threads", showThreads}};

}  // namespace
}  // namespace lamcraft

int main(int argc, char** argv) {
  if (argc < 2) {
    return 1;
  }
  lamcraft::driver::setupLocalization();
  if (argc == 3) {
    lamcraft::showMessages(argv[2]);
  } else {
    lamcraft::kShows.at(argv[1])();
  }
  return 0;
}
