// SPDX-License-Identifier: BSD-3-Clause
// A Windows program for the tests of the console: runs lamcraft in the console in which it was
// started itself, and writes to a file which code page the console has thereafter. Where OUTPUT is
// given, the program gets a deck that is not there, whose name holds an e with an accent in the
// code page 1252, and its standard output goes into that file; where that is "-", it stays on the
// console, whose first two rows then follow in the report, in UTF-8.
//   console_probe REPORT LAMCRAFT [OUTPUT]

#include <windows.h>

#include <array>
#include <fstream>
#include <string>

namespace {

const std::string kScreen = "-";

/// A new file that a child may inherit.
HANDLE fileFor(const char* const path) {
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  return CreateFileA(
      path, GENERIC_WRITE, 0, &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// A row of the console's screen in UTF-8, without the blanks at its end.
std::string rowOfScreen(const SHORT row) {
  std::array<wchar_t, 80> characters{};
  std::array<char, 4 * 80> bytes{};
  DWORD count = 0;
  ReadConsoleOutputCharacterW(GetStdHandle(STD_OUTPUT_HANDLE),
                              characters.data(),
                              static_cast<DWORD>(characters.size()),
                              {0, row},
                              &count);
  const int size = WideCharToMultiByte(CP_UTF8,
                                       0,
                                       characters.data(),
                                       static_cast<int>(count),
                                       bytes.data(),
                                       static_cast<int>(bytes.size()),
                                       nullptr,
                                       nullptr);
  const std::string text(bytes.data(), static_cast<std::size_t>(size));
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

DWORD exitCodeOf(std::string commandLine, const char* const output) {
  STARTUPINFOA startup{};
  startup.cb = sizeof(startup);
  if (output != nullptr && output != kScreen) {
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = fileFor(output);
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  }
  PROCESS_INFORMATION process{};
  if (!CreateProcessA(nullptr,
                      commandLine.data(),
                      nullptr,
                      nullptr,
                      TRUE,
                      0,
                      nullptr,
                      nullptr,
                      &startup,
                      &process)) {
    return static_cast<DWORD>(-1);
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  auto exitCode = static_cast<DWORD>(-1);
  GetExitCodeProcess(process.hProcess, &exitCode);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return exitCode;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3 && argc != 4) {
    return 1;
  }
  const std::string program = "\"" + std::string(argv[2]) + "\"";
  std::ofstream report(argv[1]);
  report << "exit code "
         << (argc == 4 ? exitCodeOf(program + " t\xe9.qdk", argv[3]) : exitCodeOf(program, nullptr))
         << "\n";
  report << "code page " << GetConsoleOutputCP() << "\n";
  if (argc == 4 && argv[3] == kScreen) {
    report << rowOfScreen(0) << "\n" << rowOfScreen(1) << "\n";
  }
  return 0;
}
