// SPDX-License-Identifier: BSD-3-Clause
#include "solve/Progress.h"

#include "command/Options.h"

namespace lamkit {

Progress::Progress(Context& context, const std::size_t count)
    : context_(context), count_(count), isBar_(isErrorTerminal()) {}

void Progress::done(const std::string& name, const DeckOutcome& outcome) {
  ++done_;
  if (context_.quiet) {
    return;
  }
  if (isBar_) {
    draw();
    return;
  }
  context_.err << done_ << '/' << count_ << ' ' << name << ": "
               << verdictOf(outcome.record.result.findings)
               << (outcome.isSkipped ? " (there already)" : "") << std::endl;
}

void Progress::failed() {
  ++done_;
  endLine();
}

void Progress::finish() {
  endLine();
}

void Progress::draw() {
  constexpr std::size_t kWidth = 40;
  const std::size_t filled = kWidth * done_ / count_;
  context_.err << '\r' << '[' << std::string(filled, '#') << std::string(kWidth - filled, ' ')
               << "] " << done_ << '/' << count_ << std::flush;
  isDrawn_ = true;
}

void Progress::endLine() {
  if (isDrawn_) {
    context_.err << std::endl;
    isDrawn_ = false;
  }
}

}  // namespace lamkit
