// A Windows program for the tests of the console: runs lamcraft in the console in which it was
// started itself, and writes to a file which code page the console has thereafter. Where OUTPUT is
// given, the program gets a deck that is not there, whose name holds an e with an accent in the
// code page 1252, and its standard output goes into that file.
//   console_probe REPORT LAMCRAFT [OUTPUT]

#include <windows.h>

#include <fstream>
#include <string>

namespace {

/// A new file that a child may inherit.
HANDLE fileFor(const char* const path) {
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  return CreateFileA(
      path, GENERIC_WRITE, 0, &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
}

DWORD exitCodeOf(std::string commandLine, const char* const output) {
  STARTUPINFOA startup{};
  startup.cb = sizeof(startup);
  if (output != nullptr) {
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
  return 0;
}
