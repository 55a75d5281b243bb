// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_VERDICT_RULE_H
#define LAMKIT_VERDICT_RULE_H

#include <cstddef>
#include <string>
#include <vector>

#include "findings/Finding.h"
#include "verdict/Subject.h"

namespace lamkit {

/// What a group of rules has to say about a material. `file` is filled in later.
using Findings = std::vector<Finding>;

/// A finding about one environment, counted from 0.
[[nodiscard]] inline Finding findingAbout(const char* const rule,
                                          const Severity severity,
                                          const std::size_t environment,
                                          std::string message) {
  Finding finding;
  finding.environment = environment + 1;
  finding.rule = rule;
  finding.severity = severity;
  finding.message = std::move(message);
  return finding;
}

/// A finding about the material as a whole.
[[nodiscard]] inline Finding findingAbout(const char* const rule,
                                          const Severity severity,
                                          std::string message) {
  Finding finding;
  finding.rule = rule;
  finding.severity = severity;
  finding.message = std::move(message);
  return finding;
}

/// "not-a-number", "zero-stiffness", "inadmissible": in any set of any damage state.
[[nodiscard]] Findings setRules(const Subject& subject);
/// "not-fitted", "misfit": the fitted ply against the deck's.
[[nodiscard]] Findings fitRules(const Subject& subject);
/// "far-from-start", "undetermined", "fiber-changes", "symmetry-lost": the fitted constituents.
[[nodiscard]] Findings constituentRules(const Subject& subject);
/// "prefail": the nonlinear shear law.
[[nodiscard]] Findings shearRules(const Subject& subject);
/// "fatigue"
[[nodiscard]] Findings fatigueRules(const Subject& subject);
/// "stale": data that are not those of the deck copy.
[[nodiscard]] Findings staleRules(const Subject& subject);

}  // namespace lamkit

#endif
