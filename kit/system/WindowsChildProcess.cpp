// SPDX-License-Identifier: BSD-3-Clause
#include <windows.h>

#include <cmath>
#include <memory>
#include <system_error>

#include "platform/WindowsText.h"
#include "system/ChildProcess.h"

namespace lamkit {

namespace {

using Clock = std::chrono::steady_clock;

std::system_error systemError(const std::string& what) {
  return {static_cast<int>(GetLastError()), std::system_category(), what};
}

struct CloseObject {
  using pointer = HANDLE;
  void operator()(const HANDLE handle) const { CloseHandle(handle); }
};
using Object = std::unique_ptr<HANDLE, CloseObject>;

/// Windows closes the job when this process ends, and ends with it all that is in it.
Object makeJob() {
  Object job(CreateJobObjectW(nullptr, nullptr));
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  if (!job || SetInformationJobObject(
                  job.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits) == 0) {
    throw systemError("job");
  }
  return job;
}

Object openInherited(const std::wstring& path, const DWORD access, const DWORD disposition) {
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  const HANDLE file = CreateFileW(path.c_str(),
                                  access,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  &inherited,
                                  disposition,
                                  FILE_ATTRIBUTE_NORMAL,
                                  nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    throw systemError("console of a child");
  }
  return Object(file);
}

/// A word as programs take their command lines apart: in quotes where it needs them, with
/// backslashes doubled before a quote.
std::wstring quoted(const std::string& word) {
  const std::wstring wide = lamcraft::platform::widened(word);
  if (!wide.empty() && wide.find_first_of(L" \t\"") == std::wstring::npos) {
    return wide;
  }
  std::wstring result = L"\"";
  std::size_t slashes = 0;
  for (const wchar_t character : wide) {
    if (character == L'"') {
      result.append(slashes + 1, L'\\');
    }
    slashes = character == L'\\' ? slashes + 1 : 0;
    result += character;
  }
  return result.append(slashes, L'\\') + L'"';
}

std::wstring commandLine(const ChildProcess& child) {
  std::wstring line = quoted(child.program);
  for (const std::string& argument : child.arguments) {
    line += L' ' + quoted(argument);
  }
  return line;
}

PROCESS_INFORMATION start(const ChildProcess& child, const HANDLE job) {
  const Object in = openInherited(L"NUL", GENERIC_READ, OPEN_EXISTING);
  const Object out =
      openInherited(lamcraft::platform::widened(child.console), GENERIC_WRITE, CREATE_ALWAYS);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = in.get();
  startup.hStdOutput = out.get();
  startup.hStdError = out.get();
  SetEnvironmentVariableW(L"LC_ALL", L"C");
  SetEnvironmentVariableW(L"LC_CTYPE", L"C");
  std::wstring line = commandLine(child);
  PROCESS_INFORMATION process{};
  if (CreateProcessW(nullptr,
                     line.data(),
                     nullptr,
                     nullptr,
                     TRUE,
                     CREATE_SUSPENDED | CREATE_NO_WINDOW,
                     nullptr,
                     nullptr,
                     &startup,
                     &process) == 0) {
    throw systemError(child.program);
  }
  AssignProcessToJobObject(job, process.hProcess);
  ResumeThread(process.hThread);
  return process;
}

DWORD milliseconds(const ChildProcess& child) {
  constexpr double kLongest = 4e9;
  return child.timeout
             ? static_cast<DWORD>(std::min(std::ceil(child.timeout->count() * 1e3), kLongest))
             : INFINITE;
}

}  // namespace

ChildEnd runChild(const ChildProcess& child) {
  const Object job = makeJob();
  const Clock::time_point begin = Clock::now();
  const PROCESS_INFORMATION information = start(child, job.get());
  const Object process(information.hProcess);
  const Object thread(information.hThread);
  if (WaitForSingleObject(process.get(), milliseconds(child)) == WAIT_TIMEOUT) {
    TerminateJobObject(job.get(), 1);
    WaitForSingleObject(process.get(), INFINITE);
    return {std::nullopt, Clock::now() - begin};
  }
  DWORD code = 0;
  GetExitCodeProcess(process.get(), &code);
  return {static_cast<int>(code), Clock::now() - begin};
}

}  // namespace lamkit
