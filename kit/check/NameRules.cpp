// SPDX-License-Identifier: BSD-3-Clause
#include "check/NameRules.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace lamkit {

namespace {

constexpr std::array<std::string_view, 22> kWindowsDevices{
    "CON",  "PRN",  "AUX",  "NUL",  "COM1", "COM2", "COM3", "COM4", "COM5", "COM6", "COM7",
    "COM8", "COM9", "LPT1", "LPT2", "LPT3", "LPT4", "LPT5", "LPT6", "LPT7", "LPT8", "LPT9"};

/// The number of bytes of the UTF-8 character that begins with `lead`; 0 for no such lead.
std::size_t lengthOf(const unsigned char lead) {
  if (lead < 0x80) {
    return 1;
  }
  if (lead >= 0xC2 && lead < 0xE0) {
    return 2;
  }
  if (lead >= 0xE0 && lead < 0xF0) {
    return 3;
  }
  return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

bool isUtf8(const std::string_view text) {
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t length = lengthOf(static_cast<unsigned char>(text[at]));
    if (length == 0 || at + length > text.size()) {
      return false;
    }
    for (std::size_t i = 1; i < length; ++i) {
      if ((static_cast<unsigned char>(text[at + i]) & 0xC0U) != 0x80U) {
        return false;
      }
    }
    at += length;
  }
  return true;
}

bool hasControl(const std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](const char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
  });
}

std::string upperCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](const char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return text;
}

bool canBeWindowsFolder(const std::string& name) {
  const std::string stem = upperCase(name.substr(0, name.find('.')));
  return name.find_first_of("<>:\"/\\|?*") == std::string::npos &&
         (name.empty() || (name.back() != '.' && name.back() != ' ')) &&
         std::find(kWindowsDevices.begin(), kWindowsDevices.end(), stem) == kWindowsDevices.end();
}

}  // namespace

void checkName(const abqinp::Keyword& material, Report& report) {
  if (!material.hasParameter("NAME")) {
    return;
  }
  const std::string name = material.parameterText("NAME");
  const Spot spot = parameterSpot(material, "NAME");
  if (!isUtf8(name) || hasControl(name)) {
    report.add("odd-character",
               Severity::error,
               spot,
               "NAME is no UTF-8 text, or holds a control byte, so that the data files are no XML: "
               "save the deck as UTF-8, or write the name in plain letters");
  } else if (!canBeWindowsFolder(name)) {
    report.add("odd-character",
               Severity::warning,
               spot,
               "NAME cannot be a folder on Windows: leave out <>:\"/\\|?*, a point or blank at the "
               "end, and the names of devices");
  }
}

}  // namespace lamkit
