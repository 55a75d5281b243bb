// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_DECKREADER_H
#define LAMKIT_CHECK_DECKREADER_H

#include <vector>

#include "abqinp/Keyword.h"
#include "check/Reading.h"
#include "check/Report.h"

namespace lamkit {

/// Gives a deck's keywords to the program's own interpretation, one at a time, and says what is
/// wrong with each: its form, its place, whatever the program refuses. After a refusal it goes on
/// with what the keyword most likely was, so that one mistake does not hide the next.
[[nodiscard]] Reading readDeck(const std::vector<abqinp::Keyword>& keywords, Report& report);

}  // namespace lamkit

#endif
