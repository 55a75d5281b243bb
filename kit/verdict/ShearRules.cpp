// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "shear/SecantLaw.h"
#include "verdict/Amount.h"
#include "verdict/Rule.h"

namespace lamkit {

namespace {

/// The law follows measured curves of carbon and glass laminae to 2.5 % of the largest strain or
/// better; twice that is another curve.
constexpr double kLargestDeviation = 0.05;

/// The part of the strength below which a curve's slope is its initial modulus.
constexpr double kInitialPart = 0.25;

/// The slope of a curve's first quarter through the origin; that of its first point where it has no
/// more. 0 when there is none.
double initialModulus(const ShearLaw& law, const double strength) {
  double product = 0.0;
  double square = 0.0;
  int count = 0;
  for (std::size_t i = 0; i < law.stress.size(); ++i) {
    const double stress = std::abs(law.stress[i]);
    const double strain = std::abs(law.strain[i]);
    if (strain > 0.0 && (stress <= kInitialPart * strength || count < 2)) {
      product += stress * strain;
      square += strain * strain;
      ++count;
    }
  }
  return square > 0.0 ? product / square : 0.0;
}

/// The largest difference of strain between law and points up to the strength, in parts of the
/// largest strain.
double deviation(const ShearLaw& law, const double strength) {
  const kx::SecantLaw secant{
      initialModulus(law, strength), law.constants.m, law.constants.b, law.constants.thr};
  double largestStrain = 0.0;
  double largest = 0.0;
  for (std::size_t i = 0; i < law.stress.size(); ++i) {
    const double stress = std::abs(law.stress[i]);
    const double strain = std::abs(law.strain[i]);
    if (stress > strength) {
      continue;  // the reduction cuts the curve there
    }
    largestStrain = std::max(largestStrain, strain);
    largest = std::max(largest, std::abs(secant.strainAt(stress) - strain));
  }
  return largestStrain > 0.0 ? largest / largestStrain : 0.0;
}

/// The in-plane shear strength, at which the curve ends.
double shearStrength(const EnvironmentData& environment, const bool isWoven) {
  const auto place = isWoven ? static_cast<std::size_t>(lamcraft::WeaveStrength::s12)
                             : static_cast<std::size_t>(lamcraft::UniStrength::s12);
  return environment.strengths[place].value();
}

bool hasCurve(const Subject& subject, const std::size_t environment) {
  const lamcraft::EnvironmentRecord* const asked = subject.deckEnvironment(environment);
  return asked != nullptr && !asked->shearStress.empty();
}

}  // namespace

Findings shearRules(const Subject& subject) {
  Findings findings;
  const MaterialData& data = subject.folder.data;
  for (std::size_t i = 0; i < data.environments.size(); ++i) {
    const auto& law = data.environments[i].shearLaw;
    if (!law) {
      if (hasCurve(subject, i)) {
        findings.push_back(findingAbout(
            "prefail",
            Severity::warning,
            i,
            "NLSHEAR gives a curve and the data hold no law: it does not reach the shear strength, "
            "or is straight; mend it, or go without nonlinear shear knowingly"));
      }
      continue;
    }
    const double most = deviation(*law, shearStrength(data.environments[i], data.isWoven()));
    if (!(most <= kLargestDeviation)) {
      Finding finding =
          findingAbout("prefail",
                       Severity::warning,
                       i,
                       "the shear law misses the measured curve by up to " + percent(most) +
                           " of its largest strain: look for stray points in NLSHEAR");
      finding.value = percent(most);
      finding.expected = "at most " + percent(kLargestDeviation);
      findings.push_back(std::move(finding));
    }
  }
  return findings;
}

}  // namespace lamkit
