// SPDX-License-Identifier: BSD-3-Clause
#include "check/Report.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

namespace lamkit {

Spot spotOf(const abqinp::Keyword& keyword, const std::size_t environment) {
  return {keyword.name(), {keyword.line(), 1}, environment};
}

Spot parameterSpot(const abqinp::Keyword& keyword,
                   const std::string& name,
                   const std::size_t environment) {
  Spot spot = spotOf(keyword, environment);
  if (keyword.hasParameter(name)) {
    spot.place = keyword.parameterPlace(name);
  }
  return spot;
}

Spot valueSpot(const abqinp::Keyword& keyword,
               const std::size_t line,
               const std::size_t position,
               const std::size_t environment) {
  Spot spot = spotOf(keyword, environment);
  if (keyword.hasValue(line, position)) {
    spot.place = keyword.valuePlace(line, position);
  } else if (line < keyword.lineCount()) {
    spot.place = {keyword.dataLineNumber(line), 1};
  }
  return spot;
}

void Report::add(const char* const rule,
                 const Severity severity,
                 const Spot& spot,
                 std::string message,
                 Figures figures) {
  Finding finding;
  finding.line = spot.place.line;
  finding.column = spot.place.column;
  finding.keyword = spot.keyword;
  finding.environment = spot.environment;
  finding.rule = rule;
  finding.severity = severity;
  finding.value = std::move(figures.value);
  finding.expected = std::move(figures.expected);
  finding.message = std::move(message);
  findings_.push_back(std::move(finding));
}

bool Report::hasErrorAt(const abqinp::Keyword& keyword) const {
  const std::size_t first = keyword.line();
  const std::size_t last =
      keyword.lineCount() == 0 ? first : keyword.dataLineNumber(keyword.lineCount() - 1);
  return std::any_of(findings_.begin(), findings_.end(), [&](const Finding& finding) {
    return finding.severity == Severity::error && finding.keyword == keyword.name() &&
           finding.line >= first && finding.line <= last;
  });
}

std::vector<Finding> Report::sorted() && {
  const auto order = [](const Finding& finding) {
    const std::size_t line =
        finding.line == 0 ? std::numeric_limits<std::size_t>::max() : finding.line;
    return std::tuple(line, finding.column);
  };
  std::stable_sort(findings_.begin(), findings_.end(), [&](const Finding& a, const Finding& b) {
    return order(a) < order(b);
  });
  return std::move(findings_);
}

}  // namespace lamkit
