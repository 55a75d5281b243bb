// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_SOLVE_PROGRESS_H
#define LAMKIT_SOLVE_PROGRESS_H

#include <cstddef>
#include <string>

#include "command/Context.h"
#include "solve/DeckRun.h"

namespace lamkit {

/// Says on the standard error stream how far a solve has come: a line a deck, or on a terminal a
/// bar that is drawn anew. Nothing with --quiet.
class Progress {
 public:
  /// `context` must outlive the object.
  Progress(Context& context, std::size_t count);

  /// A deck has its folder.
  void done(const std::string& name, const DeckOutcome& outcome);
  /// A deck has none; ends the bar's line, so that a message can follow.
  void failed();
  /// Ends the bar's line.
  void finish();

 private:
  void draw();
  void endLine();

  Context& context_;
  std::size_t count_;
  std::size_t done_ = 0;
  bool isBar_;
  bool isDrawn_ = false;
};

}  // namespace lamkit

#endif
