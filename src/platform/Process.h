// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_PLATFORM_PROCESS_H
#define LAMCRAFT_PLATFORM_PROCESS_H

#include <string>
#include <vector>

namespace lamcraft::platform {

/// What the system hands to main(), the program's path first. On Windows the texts are those of the
/// wide command line in the code page of Windows; a character that it cannot spell becomes a
/// question mark, which no name of a file holds. And the folder "C:\My Results\", whose last
/// backslash hides its quotation mark from Windows, is what it looks like.
std::vector<std::string> commandLine(int count, const char* const* arguments);

/// Makes faults of what is written errors of single writes, which the program survives or reports.
/// Call it first of all. A reader of the console that goes away and a limit to the size of files do
/// not end the process, as they would on POSIX; and where a standard stream is closed, no file that
/// is opened later takes its number, so that console text cannot get into it.
void turnWriteFaultsIntoErrors();

}  // namespace lamcraft::platform

#endif
