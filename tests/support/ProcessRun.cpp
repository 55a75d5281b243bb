// SPDX-License-Identifier: BSD-3-Clause
#include "support/ProcessRun.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace lamcraft::test {

namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

std::string contentOf(std::FILE* file) {
  std::string content;
  std::array<char, 4096> piece{};
  std::rewind(file);
  while (const std::size_t size = std::fread(piece.data(), 1, piece.size(), file)) {
    content.append(piece.data(), size);
  }
  return content;
}

bool choosesLocale(std::string_view variable) {
  return variable.substr(0, 3) == "LC_" || variable == "LANG" || variable == "LANGUAGE";
}

/// "NAME=VALUE" texts of the inherited environment and of what a run sets on top.
std::vector<std::string> environmentOf(const ProcessRun& process) {
  std::vector<std::string> entries;
  for (char** entry = environ; *entry != nullptr; ++entry) {
    const std::string_view text = *entry;
    const std::string name(text.substr(0, text.find('=')));
    if (!choosesLocale(name) && process.environment.count(name) == 0) {
      entries.emplace_back(text);
    }
  }
  for (const auto& [name, value] : process.environment) {
    entries.push_back(std::string(name).append("=").append(value));
  }
  return entries;
}

/// The texts as C wants them; they stay owned by `texts`.
std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) {
    pointers.push_back(text.data());
  }
  pointers.push_back(nullptr);
  return pointers;
}

/// Where the streams of a new process go, and where it starts.
class FileActions {
 public:
  FileActions(const std::string& folder, std::FILE* out, std::FILE* err) {
    posix_spawn_file_actions_init(&actions_);
    if (!folder.empty()) {
      posix_spawn_file_actions_addchdir_np(&actions_, folder.c_str());
    }
    posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions_, fileno(out), STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions_, fileno(err), STDERR_FILENO);
  }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;
  ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }

  [[nodiscard]] const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

}  // namespace

ProcessResult run(const ProcessRun& process) {
  const File out(std::tmpfile());
  const File err(std::tmpfile());
  if (!out || !err) {
    throw std::runtime_error("no temporary files for the output of a process");
  }
  std::vector<std::string> words = process.arguments;
  words.insert(words.begin(), process.program);
  std::vector<std::string> environment = environmentOf(process);
  const FileActions actions(process.folder, out.get(), err.get());
  pid_t id = 0;
  if (posix_spawn(&id,
                  process.program.c_str(),
                  actions.get(),
                  nullptr,
                  pointersTo(words).data(),
                  pointersTo(environment).data()) != 0) {
    throw std::runtime_error("cannot start " + process.program);
  }
  int status = 0;
  waitpid(id, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentOf(out.get()), contentOf(err.get())};
}

}  // namespace lamcraft::test
