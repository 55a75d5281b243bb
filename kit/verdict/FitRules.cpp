// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "verdict/Amount.h"
#include "verdict/Rule.h"

namespace lamkit {

namespace {

/// How far a fitted constant of the ply may be from the one that was asked for. A unidirectional
/// ply can be met exactly but for contradictions. A weave's in-plane moduli are measured to 2 to
/// 3 %, and what its unit cell leaves out (nesting, the tows' true shape) shows in all else.
constexpr double kUniMisfit = 0.01;
constexpr double kInPlaneMisfit = 0.03;
constexpr double kOtherMisfit = 0.25;
constexpr double kErrorFactor = 10.0;  ///< from a warning to an error

/// Expansions are measured to about 1e-8/K at best: one near 0 is not asked to be met more closely.
constexpr double kLeastExpansion = 1e-6;

/// An error that rounding leaves: nothing was left to fit.
constexpr double kMet = 1e-6;

bool isExpansion(const std::size_t property) {
  return lamcraft::kPropertyRows[property].dimension == lamcraft::Dimension::inverseTemperature;
}

bool isGiven(const std::size_t property, const double target) {
  return isExpansion(property) ? target != 0.0 : target > 0.0;
}

double tolerance(const std::size_t property, const bool isWoven) {
  if (!isWoven) {
    return kUniMisfit;
  }
  const auto which = static_cast<Property>(property);
  const bool isInPlane = which == Property::e11 || which == Property::e22 || which == Property::g12;
  return isInPlane ? kInPlaneMisfit : kOtherMisfit;
}

/// Which constants a fit aims at: of a unidirectional ply those that symmetry leaves.
std::vector<std::size_t> targetsOf(const bool isWoven) {
  static constexpr std::array<Property, 7> kUniTargets{Property::e11,
                                                       Property::e22,
                                                       Property::v12,
                                                       Property::v23,
                                                       Property::g12,
                                                       Property::a11,
                                                       Property::a22};
  std::vector<std::size_t> targets;
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    const auto which = static_cast<Property>(i);
    if (isWoven || std::find(kUniTargets.begin(), kUniTargets.end(), which) != kUniTargets.end()) {
      targets.push_back(i);
    }
  }
  return targets;
}

Finding misfit(const std::size_t environment,
               const std::size_t property,
               const double target,
               const double fitted,
               const Severity severity) {
  const auto& row = lamcraft::kPropertyRows[property];
  const double size = isExpansion(property) ? std::max(std::abs(target), kLeastExpansion) : target;
  Finding finding =
      findingAbout("misfit",
                   severity,
                   environment,
                   std::string("the fitted ply misses ") + row.label + " by " +
                       percent((fitted - target) / size) + " (" + amount(fitted, row.dimension) +
                       " for " + amount(target, row.dimension) +
                       "): look at this value of LAMINA, and at fiber, matrix and fractions");
  finding.value = amount(fitted, row.dimension);
  finding.expected = amount(target, row.dimension);
  return finding;
}

void lookForMisfits(const lamcraft::EnvironmentRecord& asked,
                    const EnvironmentData& answered,
                    const bool isWoven,
                    const std::size_t environment,
                    Findings& findings) {
  for (const std::size_t property : targetsOf(isWoven)) {
    const double target = asked.lamina.working()[property];
    const double fitted = answered.lamina()[property].value();
    if (!isGiven(property, target) || !std::isfinite(fitted)) {
      continue;  // not a number is another rule's
    }
    const double size =
        isExpansion(property) ? std::max(std::abs(target), kLeastExpansion) : target;
    const double deviation = std::abs(fitted - target) / size;
    const double limit = tolerance(property, isWoven);
    if (deviation > limit) {
      const bool isError = deviation > kErrorFactor * limit;
      findings.push_back(misfit(
          environment, property, target, fitted, isError ? Severity::error : Severity::warning));
    }
  }
}

bool hasMechanicalTargets(const lamcraft::EnvironmentRecord& asked, const bool isWoven) {
  const auto targets = targetsOf(isWoven);
  return std::any_of(targets.begin(), targets.end(), [&](const std::size_t property) {
    return !isExpansion(property) && isGiven(property, asked.lamina.working()[property]);
  });
}

}  // namespace

Findings fitRules(const Subject& subject) {
  Findings findings;
  const MaterialData& data = subject.folder.data;
  for (std::size_t i = 0; i < data.environments.size(); ++i) {
    const EnvironmentData& answered = data.environments[i];
    const lamcraft::EnvironmentRecord* const asked = subject.deckEnvironment(i);
    if (asked == nullptr) {
      continue;
    }
    if (answered.iterations.mechanical <= 0 && !(answered.errors.finalMechanical <= kMet) &&
        hasMechanicalTargets(*asked, data.isWoven())) {
      findings.push_back(findingAbout(
          "not-fitted",
          Severity::error,
          i,
          "nothing was fitted (0 iterations) although LAMINA gives targets: fiber and matrix are "
          "the start values, or no numbers at all"));
    }
    lookForMisfits(*asked, answered, data.isWoven(), i, findings);
  }
  return findings;
}

}  // namespace lamkit
