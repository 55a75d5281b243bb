// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "check/CurveRules.h"
#include "check/NumberText.h"
#include "check/Wording.h"

namespace lamkit {

using abqinp::Keyword;

namespace {

/// Places on a line.
enum SnValue : std::size_t { stress, life, frequency, angle, ratio };
constexpr std::size_t kSnColumns = 5;

/// A test and where it stands.
struct SnTest {
  const Keyword* keyword;
  std::size_t line;
  std::array<double, kSnColumns> values;
};

/// Kendall's tau of the stresses and lives of the first `count` tests: 1 where lives rise with
/// stresses throughout, -1 where they fall.
double rankCorrelation(const std::vector<const SnTest*>& tests, const std::size_t count) {
  double sum = 0.0;
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t j = i + 1; j < count; ++j) {
      const double byStress =
          std::abs(tests[i]->values[stress]) - std::abs(tests[j]->values[stress]);
      const double product = byStress * (tests[i]->values[life] - tests[j]->values[life]);
      sum += static_cast<double>((product > 0.0) - (product < 0.0));
    }
  }
  return 2.0 * sum / (static_cast<double>(count) * static_cast<double>(count - 1));
}

class SnCheck {
 public:
  SnCheck(const Reading& reading, const EnvironmentKeywords& environment, Report& report)
      : reading_(reading), environment_(environment), report_(report) {}

  void run() {
    for (const Keyword* const keyword : environment_.keywords) {
      if (keyword->name() == "SNDATA" && reading_.isSound(keyword)) {
        readTests(*keyword);
      }
    }
    checkLogarithms();
    for (const SnTest& test : tests_) {
      checkTest(test);
    }
    checkTrend();
  }

 private:
  void add(const SnTest& test, const SnValue value, const Severity severity, std::string message) {
    report_.add("sn-data",
                severity,
                valueSpot(*test.keyword, test.line, value, environment_.number),
                std::move(message));
  }

  void readTests(const Keyword& keyword) {
    if (keyword.lineCount() == 0) {
      report_.add("sn-data",
                  Severity::warning,
                  spotOf(keyword, environment_.number),
                  "SNDATA has no tests: add them, or remove it");
    }
    for (std::size_t line = 0; line < keyword.lineCount(); ++line) {
      const auto values = keyword.row(line).values();
      if (values.empty()) {
        continue;  // blank
      }
      SnTest test{&keyword, line, {}};
      for (std::size_t i = 0; i < std::min(values.size(), kSnColumns); ++i) {
        test.values[i] = readNumber(values[i].text).number;
      }
      if (values.size() < kSnColumns) {
        add(test,
            static_cast<SnValue>(values.size()),
            Severity::error,
            "this test has " + std::to_string(values.size()) +
                " values, and what is missing counts as 0: write stress, life, frequency, angle, "
                "R");
      } else {
        tests_.push_back(test);
      }
    }
  }

  /// Lives that are all between 1 and 9 are logarithms, unless the tests are single overloads.
  void checkLogarithms() {
    constexpr double kLargestLogarithm = 9.5;
    constexpr std::size_t kFewest = 3;
    const bool areLogarithms =
        tests_.size() >= kFewest && std::all_of(tests_.begin(), tests_.end(), [&](const SnTest& t) {
          return std::abs(t.values[life]) <= kLargestLogarithm;
        });
    if (areLogarithms) {
      add(tests_.front(),
          life,
          Severity::error,
          "the lives of all tests are below 10, as logarithms are: write the number of cycles");
      tests_.clear();
    }
  }

  void checkTest(const SnTest& test) {
    if (std::abs(test.values[life]) < 1.0) {
      add(test,
          life,
          Severity::warning,
          "a life of " + shown(test.values[life]) +
              " is below 1 cycle, and the program skips the "
              "line: write the number of cycles");
      return;
    }
    if (test.values[life] < 0.0) {
      add(test, life, Severity::error, "a life cannot be negative: write the number of cycles");
    }
    if (test.values[frequency] <= 0.0) {
      add(test,
          frequency,
          Severity::error,
          "the frequency is " + shown(test.values[frequency]) +
              ", so that the test takes for ever "
              "or no time: write it in Hz");
    }
    constexpr double kFastest = 1000.0;  // coupons heat up far below; ultrasonic tests aside
    if (test.values[frequency] > kFastest) {
      add(test,
          frequency,
          Severity::warning,
          "the frequency is " + shown(test.values[frequency]) +
              " Hz, at which no coupon is tested: check the order stress, life, frequency, angle, "
              "R");
    }
    checkRatio(test);
    checkAngle(test);
    checkStress(test);
  }

  void checkRatio(const SnTest& test) {
    const double r = test.values[ratio];
    if (r == 1.0) {
      add(test,
          ratio,
          Severity::error,
          "a ratio of 1 is a constant load, no fatigue test: write the smallest over the largest "
          "stress");
    } else if (r > 1.0 && test.values[stress] > 0.0) {
      add(test,
          ratio,
          Severity::warning,
          "a ratio of " + shown(r) +
              " with a tensile stress: give the compressive stress with its "
              "sign, or the ratio as smallest over largest");
    }
  }

  void checkAngle(const SnTest& test) {
    constexpr double kLargest = 180.0;
    if (std::abs(test.values[angle]) > kLargest) {
      add(test,
          angle,
          Severity::warning,
          "the angle is " + shown(test.values[angle]) +
              " degrees: check the order stress, life, "
              "frequency, angle, R");
    }
  }

  /// The static strength in the direction of a test; 0 where none is given for it.
  [[nodiscard]] double strengthFor(const SnTest& test) const {
    if (!reading_.isSound(environment_.last("STRENGTHS"))) {
      return 0.0;
    }
    const lamcraft::Composite& composite = reading_.composite();
    const auto& strengths = composite.environments[environment_.number - 1].strengths;
    const bool isCompression = test.values[stress] < 0.0;
    if (composite.isWoven()) {
      using W = lamcraft::WeaveStrength;
      return test.values[angle] == 0.0
                 ? strengths[static_cast<std::size_t>(isCompression ? W::c1 : W::t1)].value()
                 : 0.0;
    }
    using U = lamcraft::UniStrength;
    if (test.values[angle] == 0.0) {
      return strengths[static_cast<std::size_t>(isCompression ? U::c1 : U::t1)].value();
    }
    return std::abs(test.values[angle]) == 90.0
               ? strengths[static_cast<std::size_t>(isCompression ? U::c2 : U::t2)].value()
               : 0.0;
  }

  void checkStress(const SnTest& test) {
    constexpr double kScatter = 1.1;
    const double strength = strengthFor(test);
    if (test.values[stress] == 0.0) {
      add(test,
          stress,
          Severity::error,
          "a stress of 0 is no fatigue test: write the largest one of a cycle");
    } else if (strength > 0.0 && std::abs(test.values[stress]) > kScatter * strength) {
      add(test,
          stress,
          Severity::warning,
          "the stress is " + shown(std::abs(test.values[stress]) / strength) +
              " times the static strength of " + shown(strength) +
              ": check unit, angle and columns");
    }
  }

  /// Of one angle and ratio, lives must fall as stresses rise: by rank (Kendall's tau), so that
  /// scatter of single tests does not count.
  void checkTrend() {
    std::map<std::pair<double, double>, std::vector<const SnTest*>> groups;
    for (const SnTest& test : tests_) {
      if (std::abs(test.values[life]) >= 1.0) {
        groups[{test.values[angle], test.values[ratio]}].push_back(&test);
      }
    }
    constexpr std::size_t kFewest = 3;
    constexpr std::size_t kMost = 2000;  // pairs of more cost too much, and tell no more
    constexpr double kRising = 0.3;
    for (const auto& [key, group] : groups) {
      const std::size_t count = std::min(group.size(), kMost);
      if (count < kFewest) {
        continue;
      }
      const double tau = rankCorrelation(group, count);
      if (tau > kRising) {
        add(*group.front(),
            stress,
            Severity::warning,
            "of the tests at " + shown(key.first) + " degrees and R = " + shown(key.second) +
                ", those at higher stress live longer: check the columns");
      }
    }
  }

  const Reading& reading_;
  const EnvironmentKeywords& environment_;
  Report& report_;
  std::vector<SnTest> tests_;
};

}  // namespace

void checkSnData(const Reading& reading, const EnvironmentKeywords& environment, Report& report) {
  SnCheck(reading, environment, report).run();
}

}  // namespace lamkit
