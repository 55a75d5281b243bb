// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_PLATFORM_USERLOCALE_H
#define LAMCRAFT_PLATFORM_USERLOCALE_H

#include <locale>
#include <string>

namespace lamcraft::platform {

/// The standard library's locale for the user, all categories. On Windows its wide characters
/// become bytes in the code page of the output at that moment.
/// Throws std::runtime_error("bad locale name") when the user's locale is not there.
std::locale userLocale();

/// `base` for the narrow standard output. On Windows the program's bytes, which are in the code
/// page of Windows, become those of the console's code page where the output is a console;
/// elsewhere it is `base` itself.
std::locale withConsoleBytes(const std::locale& base);

/// The name of that locale, for instance "de_DE.UTF-8" or "German_Germany.1252". Throws likewise.
std::string userLocaleName();

/// The name of the locale whose language, messages and numbers the program shows; empty for what
/// Boost.Locale takes for the system's. On POSIX an LC_ALL that names a language wins over
/// LC_CTYPE, as it does in userLocale(); Boost.Locale has it the other way round.
std::string shownLocaleName();

/// The Boost.Locale backend whose numbers look alike on all platforms (1.500e+05).
std::string localeBackend();

}  // namespace lamcraft::platform

#endif
