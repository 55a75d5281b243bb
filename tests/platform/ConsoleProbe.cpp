// A Windows program for the tests of the console: runs lamcraft in the console in which it was
// started itself, and writes to a file which code
// page the console has thereafter.
//   console_probe REPORT LAMCRAFT

#include <windows.h>

#include <fstream>
#include <string>

namespace {

DWORD exitCodeOf(const std::string& program) {
  std::string commandLine = "\"" + program + "\"";
  STARTUPINFOA startup{};
  startup.cb = sizeof(startup);
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
  if (argc != 3) {
    return 1;
  }
  std::ofstream report(argv[1]);
  report << "exit code " << exitCodeOf(argv[2]) << "\n";
  report << "code page " << GetConsoleOutputCP() << "\n";
  return 0;
}
