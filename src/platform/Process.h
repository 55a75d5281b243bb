#ifndef LAMCRAFT_PLATFORM_PROCESS_H
#define LAMCRAFT_PLATFORM_PROCESS_H

namespace lamcraft::platform {

/// Makes faults outside the process errors of single writes, which the program survives or reports.
/// Call it first of all. A reader of the console that goes away and a limit to the size of files do
/// not end the process, as they would on POSIX; and where a standard stream is closed, no file that
/// is opened later takes its number, so that console text cannot get into it.
void weatherFaults();

}  // namespace lamcraft::platform

#endif
