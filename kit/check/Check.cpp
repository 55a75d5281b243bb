// SPDX-License-Identifier: BSD-3-Clause
#include "check/Check.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

#include "abqinp/DeckParser.h"
#include "check/CurveRules.h"
#include "check/DeckReader.h"
#include "check/FolderRules.h"
#include "check/MaterialRules.h"
#include "check/SetRules.h"
#include "check/StartRules.h"
#include "check/StrengthRules.h"
#include "check/TextRules.h"
#include "command/Context.h"
#include "platform/FileSystem.h"

namespace lamkit {

namespace {

std::string contentOf(const std::string& path) {
  if (lamcraft::platform::isEndless(path) || lamcraft::platform::isFolder(path)) {
    throw Failure(path, "is no file");
  }
  std::ifstream in(path, std::ios::binary);
  if (!in.is_open()) {
    throw Failure(path, "cannot be opened");
  }
  std::string content{std::istreambuf_iterator<char>(in), {}};
  if (in.bad()) {
    throw Failure(path, "cannot be read");
  }
  return content;
}

/// The deck as it was meant: without a byte-order mark, and with lines where lone carriage returns
/// stand for line ends. Both are errors of their own; what follows them is looked at all the same.
std::string repaired(std::string_view deck) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (deck.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
    deck.remove_prefix(kByteOrderMark.size());
  }
  std::string text(deck);
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    if (text[i] == '\r' && text[i + 1] != '\n' && text[i + 1] != '\r') {
      text[i] = '\n';
    }
  }
  return text;
}

std::vector<abqinp::Keyword> keywordsOf(std::string_view deck) {
  abqinp::DeckParser parser;
  while (!deck.empty()) {
    const std::size_t end = std::min(deck.find('\n'), deck.size());
    parser.addLine(deck.substr(0, end));
    deck.remove_prefix(std::min(end + 1, deck.size()));
  }
  return parser.finish();
}

void checkEnvironment(const Reading& reading,
                      const EnvironmentKeywords& environment,
                      const bool wantsStart,
                      Report& report) {
  checkTemperature(reading, environment, report);
  const bool hasSets = checkSets(reading, environment, report);
  checkStrengths(reading, environment, hasSets, report);
  if (hasSets && wantsStart) {
    checkStart(reading, environment, report);
  }
  checkShearCurve(reading, environment, report);
  checkSnData(reading, environment, report);
}

void checkReading(const Reading& reading, const CheckOptions& options, Report& report) {
  checkMissingKeywords(reading, options.withFolders, report);
  const bool hasFractions = checkMaterial(reading, report);
  const bool wantsStart = hasFractions && (options.withWeaves || !reading.composite().isWoven());
  for (const EnvironmentKeywords& environment : reading.environments) {
    checkEnvironment(reading, environment, wantsStart, report);
  }
  if (options.withFolders) {
    checkFolder(reading, report);
  }
}

}  // namespace

std::vector<Finding> checkDeckText(const std::string_view deck, const CheckOptions& options) {
  Report report;
  for (Finding& finding : checkText(deck)) {
    report.add(std::move(finding));
  }
  if (isTwoByteText(deck)) {
    return std::move(report).sorted();
  }
  const std::string text = repaired(deck);
  for (Finding& finding : checkLines(text)) {
    report.add(std::move(finding));
  }
  const std::vector<abqinp::Keyword> keywords = keywordsOf(text);
  const Reading reading = readDeck(keywords, report);
  if (!reading.general.empty() || !reading.environments.empty()) {
    checkReading(reading, options, report);
  }
  return std::move(report).sorted();
}

FileFindings checkDeck(const std::string& path, const CheckOptions& options) {
  FileFindings result{path, checkDeckText(contentOf(path), options)};
  for (Finding& finding : result.findings) {
    finding.file = path;
  }
  return result;
}

}  // namespace lamkit
