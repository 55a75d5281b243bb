// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>

#include "verdict/Amount.h"
#include "verdict/Rule.h"

namespace lamkit {

namespace {

using Constants = std::vector<kx::AssessedConstant>;

/// Widths are standard deviations of start values. Over 21 published laminae no constant of sound
/// data moved more than 2.8 of them, in twenty not more than 2.3; nonsense begins at 5.
constexpr double kFar = 2.5;
constexpr double kTooFar = 5.0;

/// Below this share the tests have next to nothing to say.
constexpr double kUndetermined = 0.3;

bool isExpansion(const kx::AssessedConstant& constant) {
  return constant.name.find(" A") != std::string_view::npos;
}

bool isRatio(const kx::AssessedConstant& constant) {
  return constant.name.find(" v") != std::string_view::npos;
}

bool isFiber(const kx::AssessedConstant& constant) {
  return constant.name.substr(0, 5) == "fiber";
}

lamcraft::Dimension dimensionOf(const kx::AssessedConstant& constant) {
  if (isRatio(constant)) {
    return lamcraft::Dimension::none;
  }
  return isExpansion(constant) ? lamcraft::Dimension::inverseTemperature
                               : lamcraft::Dimension::stress;
}

std::string shownValue(const kx::AssessedConstant& constant, const double value) {
  return amount(value, dimensionOf(constant));
}

std::string keywordOf(const kx::AssessedConstant& constant) {
  return isFiber(constant) ? "FIBER" : "MATRIX";
}

/// Elastic constants and expansions in one list.
Constants allConstants(const kx::Assessment& assessment) {
  Constants all = assessment.elastic;
  all.insert(all.end(), assessment.expansions.begin(), assessment.expansions.end());
  return all;
}

std::string movedText(const kx::AssessedConstant& constant) {
  return std::string(constant.name) + " came out as " + shownValue(constant, constant.fitted) +
         " for a start value of " + shownValue(constant, constant.start);
}

/// A constant that a fit carried away from what is known of it.
void lookHowFar(const kx::AssessedConstant& constant,
                const std::size_t environment,
                Findings& findings) {
  const double distance = std::abs(constant.z);
  if (!(distance > kFar) && !constant.isAtBound) {
    return;
  }
  const std::string reason =
      constant.isAtBound ? ", where a bound of the fit holds it"
                         : ", " + roughly(distance) +
                               " standard deviations from where such a constant is known to be";
  Finding finding = findingAbout("far-from-start",
                                 distance > kTooFar ? Severity::error : Severity::warning,
                                 environment,
                                 movedText(constant) + reason +
                                     ": ply and constituents do not go together; look at LAMINA, " +
                                     keywordOf(constant) + " and the fiber fraction");
  finding.value = shownValue(constant, constant.fitted);
  finding.expected =
      shownValue(constant, constant.start) + " +- " + shownValue(constant, constant.width);
  findings.push_back(std::move(finding));
}

void lookWhatIsDetermined(const kx::Assessment& assessment,
                          const std::size_t environment,
                          Findings& findings) {
  std::string names;
  for (const kx::AssessedConstant& constant : allConstants(assessment)) {
    if (constant.resolution < kUndetermined) {
      names += (names.empty() ? "" : ", ") + std::string(constant.name);
    }
  }
  if (!names.empty()) {
    findings.push_back(
        findingAbout("undetermined",
                     Severity::note,
                     environment,
                     "the tests say next to nothing of " + names +
                         ": these are the start values', to be taken from a good source"));
  }
}

/// The difference of two values of one constant in its widths.
double differenceInWidths(const kx::AssessedConstant& constant,
                          const double from,
                          const double to) {
  const bool isModulus = !isRatio(constant) && !isExpansion(constant);
  return isModulus ? std::log(to / from) / (constant.width / constant.start)
                   : (to - from) / constant.width;
}

/// A fiber knows neither moisture nor, but for little, temperature: against the first environment.
void compareFibers(const Subject& subject, Findings& findings) {
  const auto& all = subject.assessments;
  if (all.empty() || !all.front()) {
    return;
  }
  const Constants reference = allConstants(*all.front());
  for (std::size_t i = 1; i < all.size(); ++i) {
    if (!all[i]) {
      continue;
    }
    const Constants constants = allConstants(*all[i]);
    for (std::size_t j = 0; j < std::min(constants.size(), reference.size()); ++j) {
      const double difference =
          differenceInWidths(reference[j], reference[j].fitted, constants[j].fitted);
      if (!isFiber(constants[j]) || !(std::abs(difference) > kFar)) {
        continue;
      }
      Finding finding = findingAbout(
          "fiber-changes",
          Severity::warning,
          i,
          std::string(constants[j].name) + " is " + shownValue(constants[j], constants[j].fitted) +
              " here and " + shownValue(reference[j], reference[j].fitted) +
              " in environment 1, but it is one fiber: the plies of the two environments "
              "contradict each other");
      finding.value = shownValue(constants[j], constants[j].fitted);
      finding.expected = shownValue(reference[j], reference[j].fitted);
      findings.push_back(std::move(finding));
    }
  }
}

const kx::AssessedConstant* named(const Constants& constants, const std::string_view name) {
  const auto found = std::find_if(constants.begin(), constants.end(), [&](const auto& constant) {
    return constant.name == name;
  });
  return found == constants.end() ? nullptr : &*found;
}

/// Isotropic to 1 %, as published data are rounded; the engine's widths follow the same rule.
bool startsIsotropic(const Constants& elastic) {
  constexpr double kRounding = 0.01;
  const auto* const e11 = named(elastic, "fiber E11");
  const auto* const e22 = named(elastic, "fiber E22");
  const auto* const v12 = named(elastic, "fiber v12");
  const auto* const v23 = named(elastic, "fiber v23");
  const auto* const g12 = named(elastic, "fiber G12");
  if (e11 == nullptr || e22 == nullptr || v12 == nullptr || v23 == nullptr || g12 == nullptr) {
    return false;
  }
  const double shear = e11->start / (2.0 * (1.0 + v12->start));
  return std::abs(e22->start / e11->start - 1.0) <= kRounding &&
         std::abs(v23->start - v12->start) <= kRounding &&
         std::abs(g12->start / shear - 1.0) <= kRounding;
}

/// Two constants that are one in an isotropic fiber, apart by more than both widths allow.
void lookForAnisotropy(const Constants& elastic,
                       const std::size_t environment,
                       Findings& findings) {
  static constexpr std::array<std::array<std::string_view, 2>, 2> kPairs{
      {{"fiber E11", "fiber E22"}, {"fiber v12", "fiber v23"}}};
  for (const auto& [first, second] : kPairs) {
    const kx::AssessedConstant& a = *named(elastic, first);
    const kx::AssessedConstant& b = *named(elastic, second);
    const double widths = isRatio(a) ? std::hypot(a.width, b.width)
                                     : std::hypot(a.width / a.start, b.width / b.start);
    const double apart = isRatio(a) ? b.fitted - a.fitted : std::log(b.fitted / a.fitted);
    if (std::abs(apart) > kFar * widths) {
      findings.push_back(
          findingAbout("symmetry-lost",
                       Severity::warning,
                       environment,
                       "the fiber starts isotropic and ends with " + std::string(first) + " " +
                           shownValue(a, a.fitted) + " and " + std::string(second) + " " +
                           shownValue(b, b.fitted) +
                           ": glass has no direction; look at LAMINA across the fibers"));
    }
  }
}

}  // namespace

Findings constituentRules(const Subject& subject) {
  Findings findings;
  for (std::size_t i = 0; i < subject.assessments.size(); ++i) {
    if (!subject.assessments[i]) {
      continue;
    }
    const kx::Assessment& assessment = *subject.assessments[i];
    for (const kx::AssessedConstant& constant : allConstants(assessment)) {
      lookHowFar(constant, i, findings);
    }
    if (startsIsotropic(assessment.elastic)) {
      lookForAnisotropy(assessment.elastic, i, findings);
    }
    lookWhatIsDetermined(assessment, i, findings);
  }
  compareFibers(subject, findings);
  return findings;
}

}  // namespace lamkit
