// SPDX-License-Identifier: BSD-3-Clause
#include "driver/Localization.h"

#include <iostream>
#include <locale>

#include <boost/locale.hpp>

#include "console/Format.h"
#include "console/Output.h"
#include "console/WideConversion.h"
#include "platform/Console.h"
#include "platform/Installation.h"
#include "platform/UserLocale.h"

namespace lamcraft::driver {

namespace {

/// The system's locale with its messages. Only the parts are made that the program uses: making
/// them all takes several times as long. And narrow messages cannot be had where the name of the
/// locale tells no encoding, as "de_DE": their umlauts are not ASCII.
std::locale generatedLocale(const std::string& messagesPath, const std::string& domain) {
  auto backends = boost::locale::localization_backend_manager::global();
  backends.select(platform::localeBackend());
  boost::locale::generator generator(backends);
  generator.characters(boost::locale::char_facet);
  generator.categories(boost::locale::formatting_facet | boost::locale::information_facet);
  const std::string name = platform::shownLocaleName();
  const std::locale narrow = generator(name);
  generator.characters(boost::locale::wchar_t_facet);
  generator.categories(boost::locale::formatting_facet | boost::locale::message_facet);
  generator.add_messages_path(messagesPath);
  generator.add_messages_domain(domain);
  return generator.generate(narrow, name);
}

bool isGermanSystem() {
  const std::string name = boost::locale::util::get_system_locale();
  return name.find("de_DE") != std::string::npos;
}

}  // namespace

std::string installedLocalePath() {
  return platform::installedCatalogueFolder().value_or("locale");
}

void setupLocalization(const std::optional<std::string>& messagesPath,
                       const std::optional<std::string>& domain) {
  const std::locale generated =
      generatedLocale(messagesPath.value_or(installedLocalePath()), domain.value_or("cvqt"));
  const std::locale user = platform::userLocale();
  // Before the streams get their locales: this renews their buffers, and the conversion of a wide
  // stream's characters would be lost.
  std::ios_base::sync_with_stdio(false);
  std::locale::global(console::withListSeparator(generated, platform::userLocaleName()));
  std::cout.imbue(platform::withConsoleBytes(std::locale()));
  std::wcout.imbue(console::withSteadyConversion(user));
  setupConsole();
}

void setupConsole() {
  constexpr unsigned kWesternEuropean = 1252;
  if (!isGermanSystem()) {
    return;
  }
  if (!platform::supportsConsoleFonts()) {
    console::Output().text("Unable to set console to Unicode font").endLine();
    return;
  }
  platform::setConsoleFont(L"Lucida Console");
  platform::setConsoleCodePage(kWesternEuropean);
}

}  // namespace lamcraft::driver
