// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_DRIVER_LOCALIZATION_H
#define LAMCRAFT_DRIVER_LOCALIZATION_H

#include <optional>
#include <string>

namespace lamcraft::driver {

/// The folder of the message catalogues that the installation names, else "locale" in the working
/// folder.
std::string installedLocalePath();

/// Makes the user's locale the program's: messages come translated from the catalogues of `domain`
/// (else "cvqt") below `messagesPath` (else installedLocalePath()), numbers and lists look as the
/// user writes them, and the console can show both. The C locale stays as it is, so the numbers of
/// decks and data files do too. Call it before anything is printed.
///
/// Throws the standard exceptions of the locale machinery, among them std::runtime_error("bad
/// locale name") when the user's locale is not installed. A missing catalogue is no error.
void setupLocalization(const std::optional<std::string>& messagesPath = std::nullopt,
                       const std::optional<std::string>& domain = std::nullopt);

/// Gives the console a font and a code page that show German, when the system's locale is de_DE.
/// Says so on the console where the system is too old for that, and goes on.
void setupConsole();

}  // namespace lamcraft::driver

#endif
