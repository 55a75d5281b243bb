// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_PLATFORM_WINDOWSTEXT_H
#define LAMCRAFT_PLATFORM_WINDOWSTEXT_H

#include <string>

namespace lamcraft::platform {

/// Wide form of a text in the ANSI code page of the process, in which Windows hands over the
/// program's arguments.
std::wstring widened(const std::string& text);

/// The text in that code page; a question mark stands for each character that it lacks.
std::string narrowed(const std::wstring& text);

}  // namespace lamcraft::platform

#endif
