// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "check/Wording.h"
#include "verdict/Amount.h"
#include "verdict/LifeScatter.h"
#include "verdict/Rule.h"

namespace lamkit {

namespace {

/// Lives scatter by a factor of two from coupon to coupon at the least (0.3 in log10): less is
/// never the law's fault.
constexpr double kOrdinaryScatter = 0.3;
/// How much more than a straight line's scatter is the law's own.
constexpr double kScatterFactor = 2.0;

/// Loads within a degree of the fibers are along them, as the engine takes them.
bool isAlong(const SnRecord& test) {
  return std::abs(test.angle) < 1.0;
}

/// Sums for a line through points.
struct LineSums {
  double n = 0.0, x = 0.0, y = 0.0, xx = 0.0, xy = 0.0, yy = 0.0;

  void add(const double stress, const double life) {
    n += 1.0;
    x += stress;
    y += life;
    xx += stress * stress;
    xy += stress * life;
    yy += life * life;
  }
  /// Sum of the squared distances in life.
  [[nodiscard]] double residual() const {
    const double sxx = xx - x * x / n;
    const double sxy = xy - x * y / n;
    const double syy = yy - y * y / n;
    return std::max(0.0, sxx > 0.0 ? syy - sxy * sxy / sxx : syy);
  }
};

/// The scatter of log10(life) about straight lines over the stress, one for each angle and ratio
/// with three tests or more; nothing without such.
std::optional<double> straightLineScatter(const std::vector<SnRecord>& tests) {
  std::map<std::pair<double, double>, LineSums> groups;
  double scale = 0.0;
  for (const SnRecord& test : tests) {
    scale = std::max(scale, std::abs(test.stress));
  }
  for (const SnRecord& test : tests) {
    groups[{test.angle, test.ratio}].add(test.stress / scale, std::log10(std::abs(test.life)));
  }
  double sum = 0.0;
  double count = 0.0;
  for (const auto& [key, line] : groups) {
    if (line.n >= 3.0) {
      sum += line.residual();
      count += line.n;
    }
  }
  if (count == 0.0) {
    return std::nullopt;
  }
  return std::sqrt(sum / count);
}

std::string listed(const std::set<double>& values) {
  std::string text;
  for (const double value : values) {
    text += (text.empty() ? "" : ", ") + shown(value);
  }
  return text;
}

/// What no test has seen.
void lookWhatIsUntested(const EnvironmentData& environment,
                        const std::size_t index,
                        Findings& findings) {
  std::set<double> ratios;
  std::set<double> frequencies;
  for (const SnRecord& test : environment.snRecords) {
    ratios.insert(test.ratio);
    frequencies.insert(test.frequency);
  }
  if (ratios.size() == 1) {
    findings.push_back(findingAbout("fatigue",
                                    Severity::note,
                                    index,
                                    "every test has the ratio R = " + listed(ratios) +
                                        ": lives at other ratios rest on the law alone"));
  }
  if (frequencies.size() == 1) {
    findings.push_back(
        findingAbout("fatigue",
                     Severity::note,
                     index,
                     "every test has the frequency " + listed(frequencies) +
                         " Hz: the law makes cycles to failure proportional to the frequency"));
  }
}

void lookAtConstants(const EnvironmentData& environment,
                     const std::size_t index,
                     Findings& findings) {
  const FittedConstituent* const matrix = environment.find("matrix");
  if (matrix == nullptr || !matrix->fatigue) {
    findings.push_back(
        findingAbout("fatigue",
                     Severity::warning,
                     index,
                     "SNDATA gives tests and the data hold no fatigue constants: lives cannot be "
                     "predicted; look at the temperature, the strengths and the tests"));
    return;
  }
  const auto& tests = environment.snRecords;
  const bool hasAlong = std::any_of(tests.begin(), tests.end(), isAlong);
  const bool hasAcross = !std::all_of(tests.begin(), tests.end(), isAlong);
  if (!hasAlong || !hasAcross) {
    findings.push_back(findingAbout(
        "fatigue",
        Severity::note,
        index,
        std::string("no test is ") + (hasAlong ? "across" : "along") +
            " the fibers: the constants of that direction rest on the strength and on what is "
            "usual"));
  }
}

void lookAtScatter(const Subject& subject, const std::size_t index, Findings& findings) {
  const double law = lawScatter(subject, index);
  const auto line = straightLineScatter(subject.folder.data.environments[index].snRecords);
  if (line && law > kOrdinaryScatter && law > kScatterFactor * *line) {
    Finding finding = findingAbout(
        "fatigue",
        Severity::warning,
        index,
        "lives scatter by " + roughly(law) + " decades about the law and by " + roughly(*line) +
            " about straight lines: strengths and tests do not go together");
    finding.value = roughly(law) + " decades";
    finding.expected = roughly(*line) + " decades";
    findings.push_back(std::move(finding));
  }
}

}  // namespace

Findings fatigueRules(const Subject& subject) {
  Findings findings;
  const MaterialFolder& folder = subject.folder;
  for (std::size_t i = 0; i < folder.data.environments.size(); ++i) {
    const EnvironmentData& environment = folder.withFatigue(i);
    if (environment.snRecords.empty()) {
      continue;
    }
    if (!folder.data.isWoven()) {  // of a weave the files hold neither constants nor error
      lookAtConstants(environment, i, findings);
      lookAtScatter(subject, i, findings);
    }
    lookWhatIsUntested(environment, i, findings);
  }
  return findings;
}

}  // namespace lamkit
