#include "composite/SolveMonitor.h"

#include <chrono>
#include <string>

#include "composite/MicromechanicsCalls.h"
#include "console/Format.h"
#include "console/Messages.h"
#include "console/Output.h"

namespace lamcraft {

namespace {

constexpr std::chrono::milliseconds kPollInterval{1000};

}  // namespace

SolveMonitor::SolveMonitor() : thread_([this] { watch(); }) {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return hasAsked_; });
}

SolveMonitor::~SolveMonitor() {
  {
    const std::lock_guard lock(mutex_);
    isToStop_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void SolveMonitor::watch() {
  const std::string separator = console::listSeparator();
  bool goOn = true;
  while (goOn) {
    goOn = micromechanics::status().goOn;
    if (goOn) {
      reportIteration(separator);
    }
    markAsked();
    goOn = goOn && waitForNextPoll();
  }
}

void SolveMonitor::reportIteration(const std::string& separator) {
  const micromechanics::Status status = micromechanics::status();
  if (!status.goOn || status.iteration <= lastIteration_) {
    return;
  }
  console::Output()
      .message(console::kIteration)
      .text(" ")
      .number(status.iteration)
      .text(separator)
      .text(" ")
      .message(console::kError)
      .text(" ")
      .number(status.error)
      .endLine();
  lastIteration_ = status.iteration;
}

void SolveMonitor::markAsked() {
  {
    const std::lock_guard lock(mutex_);
    hasAsked_ = true;
  }
  changed_.notify_all();
}

bool SolveMonitor::waitForNextPoll() {
  std::unique_lock lock(mutex_);
  changed_.wait_for(lock, kPollInterval, [this] { return isToStop_; });
  return !isToStop_;
}

}  // namespace lamcraft
