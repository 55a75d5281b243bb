// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_DRIVER_FAILUREREPORTS_H
#define LAMCRAFT_DRIVER_FAILUREREPORTS_H

#include <functional>

namespace lamcraft::driver {

/// What the program answers to the system that started it.
enum class ExitCode : int { success = 0, malformedInput = 1, failed = 2, unknownError = 3 };

using Phase = std::function<void()>;

/// The three phases of a run. Each runs its work, prints a headline and the text of the standard
/// exception that leaves it, if any, and answers the exit code of that failure. Other exceptions
/// pass.

/// Sets up locale and console. A failure is reported untranslated and counts as success.
/// False when the run ends here.
bool runLocalization(const Phase& setUp);

/// Reads the deck.
ExitCode runParse(const Phase& readDeck);

/// Turns the deck into a material folder.
ExitCode runCreate(const Phase& create);

}  // namespace lamcraft::driver

#endif
