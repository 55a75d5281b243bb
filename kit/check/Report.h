// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_CHECK_REPORT_H
#define LAMKIT_CHECK_REPORT_H

#include <cstddef>
#include <string>
#include <vector>

#include "abqinp/Keyword.h"
#include "findings/Finding.h"

namespace lamkit {

/// What a finding is about: a keyword, a place in the deck, an environment.
struct Spot {
  std::string keyword;          ///< name; empty where there is none
  abqinp::Place place;          ///< 0 where there is none
  std::size_t environment = 0;  ///< from 1; 0 for the whole material
};

/// The place of a keyword itself.
[[nodiscard]] Spot spotOf(const abqinp::Keyword& keyword, std::size_t environment = 0);

/// The place of a parameter; the keyword's own where it has no such parameter.
[[nodiscard]] Spot parameterSpot(const abqinp::Keyword& keyword,
                                 const std::string& name,
                                 std::size_t environment = 0);

/// The place of a value, by data line and position from 0; where there is no such value, the data
/// line's, and where there is no such line, the keyword's own.
[[nodiscard]] Spot valueSpot(const abqinp::Keyword& keyword,
                             std::size_t line,
                             std::size_t position,
                             std::size_t environment = 0);

/// What was read and what would be usual; both may be empty.
struct Figures {
  std::string value = {};
  std::string expected = {};
};

/// Collects the findings of one deck.
class Report {
 public:
  void add(const char* rule,
           Severity severity,
           const Spot& spot,
           std::string message,
           Figures figures = {});
  void add(Finding finding) { findings_.push_back(std::move(finding)); }

  /// Whether there is an error at a keyword, by its line.
  [[nodiscard]] bool hasErrorAt(const abqinp::Keyword& keyword) const;
  [[nodiscard]] bool hasError() const { return worst(findings_) == Severity::error; }

  /// The findings in the order of their places, those without a place last.
  [[nodiscard]] std::vector<Finding> sorted() &&;

 private:
  std::vector<Finding> findings_;
};

}  // namespace lamkit

#endif
