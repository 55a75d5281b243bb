// SPDX-License-Identifier: BSD-3-Clause
#include "windows/WindowsProgram.h"

#include <iconv.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include <gtest/gtest.h>

namespace lamcraft::test {

namespace fs = std::filesystem;

ProcessResult runUnderWine(const ProcessRun& process) {
  ProcessRun wine = process;
  wine.program = LAMCRAFT_WINE;
  wine.arguments.insert(wine.arguments.begin(), process.program);
  return run(wine);
}

std::string withPlainLineEnds(const std::string& text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.compare(i, 2, "\r\n") != 0) {
      plain += text[i];
    }
  }
  return plain;
}

std::string inCodePage(const std::string& text, int codePage) {
  const iconv_t conversion = iconv_open(("CP" + std::to_string(codePage)).c_str(), "UTF-8");
  // NOLINTNEXTLINE(performance-no-int-to-ptr): what iconv_open() answers then
  if (conversion == iconv_t(-1)) {
    throw std::runtime_error("no such code page");
  }
  std::string source = text;
  std::string target(2 * text.size(), '\0');
  char* from = source.data();
  char* to = target.data();
  std::size_t fromLeft = source.size();
  std::size_t toLeft = target.size();
  const std::size_t answer = iconv(conversion, &from, &fromLeft, &to, &toLeft);
  iconv_close(conversion);
  if (answer != 0) {
    throw std::runtime_error("not in the code page: " + text);
  }
  target.resize(target.size() - toLeft);
  return target;
}

std::string windowsPath(const std::string& path) {
  std::string windows = "Z:" + path;
  std::replace(windows.begin(), windows.end(), '/', '\\');
  return windows;
}

void copyCatalogues(const std::string& folder) {
  fs::create_directories(fs::path(folder).parent_path());
  fs::copy(LAMCRAFT_CATALOGUES, folder, fs::copy_options::recursive);
}

WindowsProgram::WindowsProgram(Library library) {
  const fs::path build = LAMCRAFT_WINDOWS_BUILD;
  fs::copy_file(build / "bin" / "lamcraft.exe", program());
  const char* const source = library == Library::engine ? "bin" : "fake";
  fs::copy_file(build / source / "kxdriver.dll", folder_.file("kxdriver.dll"));
}

ProcessResult WindowsProgram::run(const std::vector<std::string>& arguments,
                                  const std::map<std::string, std::string>& environment) const {
  ProcessResult result = runUnderWine({program(), arguments, environment, folder_.path().string()});
  EXPECT_EQ(result.err, "");
  result.out = withPlainLineEnds(result.out);
  return result;
}

ProcessResult WindowsProgram::runFromPrompt(const std::vector<std::string>& settings,
                                            const std::string& language) const {
  std::string line;
  for (const std::string& setting : settings) {
    line += "set " + setting + "&";
  }
  ProcessResult result = runUnderWine({"cmd",
                                       {"/c", line + "lamcraft.exe missing.qdk"},
                                       {{"LC_ALL", language}},
                                       folder_.path().string()});
  EXPECT_EQ(result.err, "");
  result.out = withPlainLineEnds(result.out);
  return result;
}

}  // namespace lamcraft::test
