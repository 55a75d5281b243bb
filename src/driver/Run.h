#ifndef LAMCRAFT_DRIVER_RUN_H
#define LAMCRAFT_DRIVER_RUN_H

#include "driver/Phases.h"

namespace lamcraft::driver {

/// The whole run: sets up locale and console, reads the deck `arguments[1]` and creates its
/// material, in the results folder `arguments[2]` when there is one. Without a deck it prints how
/// the program is called. Standard exceptions are reported here and decide the exit code.
///
/// `arguments` are the `count` texts that the system hands to the process, the program's path
/// first; those after the third are not looked at.
ExitCode run(int count, const char* const* arguments);

}  // namespace lamcraft::driver

#endif
