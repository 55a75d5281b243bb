// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_PLATFORM_CONSOLE_H
#define LAMCRAFT_PLATFORM_CONSOLE_H

namespace lamcraft::platform {

/// Whether the console can be given another font: from Windows 6.0 on, and on every platform that
/// leaves its terminals' fonts alone.
bool supportsConsoleFonts();

/// Sets the font of the console at the standard output, its size and weight being left alone, and
/// does nothing when there is no console or the platform has no such setting.
void setConsoleFont(const wchar_t* faceName);

/// Sets the code page in which the console reads the program's bytes; nothing without a console or
/// on a platform that knows no code pages.
void setConsoleCodePage(unsigned codePage);

}  // namespace lamcraft::platform

#endif
