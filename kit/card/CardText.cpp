// SPDX-License-Identifier: BSD-3-Clause
#include "card/CardText.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <sstream>

namespace lamkit {

namespace {

constexpr std::size_t kLineLength = 80;

std::string printed(const double value, const std::chars_format format, const int precision) {
  std::array<char, 64> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, format, precision).ptr;
  std::string number(text.data(), end);
  for (char& character : number) {
    character = character == 'e' ? 'E' : character;
  }
  return number;
}

std::string sourceOf(const CardMaterial& card) {
  std::string text = "Source: mdata.xml of " + card.folder->path + ", ";
  text += card.temperatures.size() == 1 ? "environment" : "environments";
  const char* separator = " ";
  for (const CardEnvironment& environment : card.temperatures) {
    text += separator + std::to_string(environment.number) + " (" +
            shortNumber(environment.temperature) + " K)";
    separator = ", ";
  }
  return text + ", " + card.moisture + "; lamkit " LAMKIT_VERSION;
}

}  // namespace

std::string cardNumber(const double value, const int digitsAfterPoint) {
  return printed(value, std::chars_format::scientific, digitsAfterPoint);
}

std::string shortNumber(const double value) {
  constexpr int kDigits = 7;
  return printed(value, std::chars_format::general, kDigits);
}

std::string cardNumbers(const std::vector<double>& values) {
  std::string text;
  for (const double value : values) {
    text += (text.empty() ? "" : ", ") + cardNumber(value);
  }
  return text;
}

std::string commentOf(const std::string& mark, const std::string& text) {
  std::string clean = text;
  for (char& character : clean) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte < 0x20 || byte == 0x7f) {
      character = '?';
    }
  }
  std::string lines;
  std::string line = mark;
  std::istringstream words(clean);
  for (std::string word; words >> word;) {
    if (line != mark && line.size() + 1 + word.size() > kLineLength) {
      lines += line + "\n";
      line = mark + "  ";
    }
    line += " " + word;
  }
  return lines + line + "\n";
}

std::string headOf(const CardMaterial& card, const std::string& mark, const std::string& remark) {
  const char* const axes = card.isWoven() ? "Axes: 1 along the fill, 2 along the warp, 3 through "
                                            "the thickness"
                                          : "Axes: 1 along the fibres, 2 across, 3 through the "
                                            "thickness";
  std::string head = commentOf(mark, card.folder->data.name);
  head += commentOf(mark, remark);
  head += commentOf(mark, std::string("Units: ") + card.units.description);
  head += commentOf(mark, axes);
  head += commentOf(mark, sourceOf(card));
  head += commentOf(mark, std::string("Verdict: ") + verdictOf(card.findings));
  for (const Finding& finding : card.findings) {
    if (finding.severity != Severity::note) {
      head += commentOf(mark,
                        std::string(nameOf(finding.severity)) + ": " + finding.message + " [" +
                            finding.rule + "]");
    }
  }
  return head;
}

}  // namespace lamkit
