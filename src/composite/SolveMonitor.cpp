// SPDX-License-Identifier: BSD-3-Clause
#include "composite/SolveMonitor.h"

#include <chrono>
#include <cstdint>
#include <string>

#include "composite/MicromechanicsCalls.h"
#include "console/Format.h"
#include "console/Messages.h"
#include "console/Output.h"

namespace lamcraft {

namespace {

constexpr std::chrono::milliseconds kPollInterval{1000};

void printIteration(const micromechanics::Status& status, const std::string& separator) {
  console::Output()
      .message(console::kIteration)
      .wide(L" ")
      .wideNumber(status.iteration)
      .widened(separator)
      .wide(L" ")
      .message(console::kError)
      .wide(L" ")
      .wideNumber(status.error)
      .endLine();
}

}  // namespace

SolveMonitor::SolveMonitor() : thread_([this] { watch(); }) {}

SolveMonitor::~SolveMonitor() {
  {
    const std::lock_guard lock(mutex_);
    isToStop_ = true;
  }
  stopped_.notify_all();
  thread_.join();
}

void SolveMonitor::watch() {
  const std::string separator = console::listSeparator();
  std::int32_t lastIteration = -1;  // of the last line printed
  while (micromechanics::status().goOn) {
    const micromechanics::Status status = micromechanics::status();
    if (status.goOn && status.iteration > lastIteration) {
      printIteration(status, separator);
      lastIteration = status.iteration;
    }
    if (!waitForNextPoll()) {
      return;
    }
  }
}

bool SolveMonitor::waitForNextPoll() {
  std::unique_lock lock(mutex_);
  return !stopped_.wait_for(lock, kPollInterval, [this] { return isToStop_; });
}

}  // namespace lamcraft
