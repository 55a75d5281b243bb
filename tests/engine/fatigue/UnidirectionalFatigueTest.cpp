// SPDX-License-Identifier: BSD-3-Clause
#include "fatigue/UnidirectionalFatigue.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "lamina/Concentration.h"
#include "lamina/UnidirectionalLamina.h"
#include "support/ReferenceData.h"

namespace {

struct SnSet {
  std::string id;
  double temperature = 0.0;
  std::vector<kx::SnRecord> records;
};

/// The published sets of one glass/epoxy lamina: Pa, K.
std::vector<SnSet> publishedSets() {
  const auto published = kx::test::reference("published.json");
  std::vector<SnSet> sets;
  for (const auto& entry : published) {
    const std::string id = entry["id"];
    if (entry["kind"] != "sn" || id.rfind("sn_ge", 0) != 0) {
      continue;
    }
    const auto& inputs = entry["inputs"];
    SnSet set{id, inputs.value("temperature_C", 23.0) + 273.15, {}};
    for (const auto& point : entry["targets"]["points"]) {
      set.records.push_back({point[0].get<double>() * 1e6,
                             point[1].get<double>(),
                             point[2].is_null() ? 0.0 : point[2].get<double>(),
                             inputs["off_axis_angle_deg"].get<double>(),
                             inputs["R"].get<double>()});
    }
    sets.push_back(set);
    if (id == "sn_ge1_ud0_R-1_RT") {
      // the database's note: at 5 Hz these coupons heat themselves and live clearly shorter
      set.id += " below 5 Hz";
      set.records.erase(std::remove_if(set.records.begin(),
                                       set.records.end(),
                                       [](const kx::SnRecord& record) {
                                         return record.frequency <= 0.0 || record.frequency > 4.6;
                                       }),
                        set.records.end());
      sets.push_back(set);
    }
  }
  return sets;
}

/// Strengths of the lamina at room temperature, and at the others where they were measured.
kx::PlyStrengths strengthsOf(const std::string& id) {
  if (id.find("_p60C") != std::string::npos) {
    return {{760.8e6, 507.1e6}, {56.6e6, 93e6}, 49.4e6};
  }
  if (id.find("_m40C") != std::string::npos) {
    return {{977.3e6, 507.1e6}, {65.3e6, 237e6}, 122.7e6};
  }
  return {{828.2e6, 507.1e6}, {54.4e6, 162.1e6}, 78.8e6};
}

kx::MatrixConcentration glassEpoxy() {
  const auto matrix = kx::isotropic(3.0e9, 0.37, 63e-6);
  const auto lamina = kx::homogenise(kx::isotropic(72.4e9, 0.22, 5e-6), matrix, 0.523);
  const auto field = kx::concentration(matrix, lamina.matrix, lamina.effective);
  return {field.stress(0, 0), field.stress(1, 1)};
}

double frequencyOf(const kx::SnRecord& record) {
  return record.frequency > 0.0 ? record.frequency : 1.0;
}

/// Rms of the residuals of the best straight line.
double lineScatter(const std::vector<double>& x, const std::vector<double>& y) {
  const auto n = static_cast<double>(x.size());
  double sx = 0, sy = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    sx += x[i] / n;
    sy += y[i] / n;
  }
  double xx = 0, xy = 0, yy = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    xx += (x[i] - sx) * (x[i] - sx);
    xy += (x[i] - sx) * (y[i] - sy);
    yy += (y[i] - sy) * (y[i] - sy);
  }
  return std::sqrt(std::max(0.0, yy - (xx > 0 ? xy * xy / xx : 0.0)) / n);
}

/// log10 scatter of the records about the life that the constants predict.
double predictionScatter(const SnSet& set, const kx::FatigueFit& fit) {
  const auto matrix = glassEpoxy();
  const auto strengths = strengthsOf(set.id);
  double sum = 0.0;
  for (const auto& record : set.records) {
    const bool isAlong = kx::loadAxis(record.angle) == kx::LoadAxis::along;
    const auto direction = kx::loadDirection(record.angle);
    const bool pushes = std::abs(record.ratio) > 1.0;
    const double s22 = pushes ? strengths.transverse.compression : strengths.transverse.tension;
    const double oblique = std::hypot(direction.sine * direction.sine,
                                      s22 / strengths.shear * direction.sine * direction.cosine);
    const double factor = isAlong ? matrix.longitudinal : matrix.transverse * oblique;
    const double lnTime =
        kx::lnTimeToFailure(isAlong ? fit.longitudinal.constants : fit.transverse.constants,
                            {std::abs(record.stress) * factor,
                             pushes ? 1.0 / record.ratio : record.ratio,
                             set.temperature});
    const double deviation =
        lnTime / std::log(10.0) + std::log10(frequencyOf(record)) - std::log10(record.life);
    sum += deviation * deviation;
  }
  return std::sqrt(sum / static_cast<double>(set.records.size()));
}

struct Lines {
  double cycles, time, logCycles, logTime;
};

Lines linesOf(const SnSet& set) {
  std::vector<double> stress, logStress, cycles, time;
  for (const auto& record : set.records) {
    stress.push_back(std::abs(record.stress) / 1e6);
    logStress.push_back(std::log(stress.back()));
    cycles.push_back(std::log10(record.life));
    time.push_back(std::log10(record.life / frequencyOf(record)));
  }
  return {lineScatter(stress, cycles),
          lineScatter(stress, time),
          lineScatter(logStress, cycles),
          lineScatter(logStress, time)};
}

TEST(UnidirectionalFatigue, PublishedSetsScatterNoMoreThanAboutAStraightLine) {
  const auto sets = publishedSets();
  ASSERT_EQ(sets.size(), 11U);
  // Bond breaking counts time, so at one stress its cycles grow with the frequency; these sets mix
  // frequencies at one stress and their cycles do not. Whatever the constants, the model cannot
  // come below the scatter of log time, and that alone is beyond the bar for log cycles.
  const std::set<std::string> mixedFrequencies{"sn_ge1_ud0_R-1_RT", "sn_ge1_ud60_R0.1_RT"};
  for (const auto& set : sets) {
    const auto fit = kx::fitUnidirectionalFatigue(
        set.records, set.temperature, strengthsOf(set.id), glassEpoxy());
    const double scatter = predictionScatter(set, fit);
    const auto lines = linesOf(set);
    EXPECT_LE(scatter, 1.15 * lines.time) << set.id;
    if (mixedFrequencies.count(set.id) > 0) {
      EXPECT_GT(lines.time, 1.15 * lines.cycles) << set.id;
    } else {
      EXPECT_LE(scatter, 1.15 * lines.cycles) << set.id;
    }
    const bool isAlong = kx::loadAxis(set.records.front().angle) == kx::LoadAxis::along;
    const auto& direction = isAlong ? fit.longitudinal : fit.transverse;
    EXPECT_NEAR(direction.finalError, scatter, 1e-9) << set.id;
    RecordProperty(set.id + " model", std::to_string(scatter));
    RecordProperty(set.id + " cycles against stress", std::to_string(lines.cycles));
    RecordProperty(set.id + " cycles against log stress", std::to_string(lines.logCycles));
    RecordProperty(set.id + " time against stress", std::to_string(lines.time));
    RecordProperty(set.id + " time against log stress", std::to_string(lines.logTime));
  }
}

TEST(UnidirectionalFatigue, AxialSetsKeepTheStaticStrengthWithinTenPercent) {
  for (const auto& set : publishedSets()) {
    if (set.id.find("ge1") == std::string::npos) {
      continue;  // the strengths are those of the other laminate
    }
    if (kx::loadAxis(set.records.front().angle) == kx::LoadAxis::oblique) {
      continue;  // what drives an oblique load is 7 % off in the static tests already
    }
    const auto strengths = strengthsOf(set.id);
    const auto matrix = glassEpoxy();
    const auto fit = kx::fitUnidirectionalFatigue(set.records, set.temperature, strengths, matrix);
    const bool isAlong = kx::loadAxis(set.records.front().angle) == kx::LoadAxis::along;
    const bool pushes = set.records.front().ratio > 1.0;
    const auto& sensed = isAlong ? strengths.longitudinal : strengths.transverse;
    const double strength = pushes ? sensed.compression : sensed.tension;
    const auto& constants = (isAlong ? fit.longitudinal : fit.transverse).constants;
    const double predicted = kx::rampStrength(constants, set.temperature) /
                             (isAlong ? matrix.longitudinal : matrix.transverse);
    // the prior's standard deviation is 5 %
    EXPECT_NEAR(predicted / strength, 1.0, 0.10) << set.id;
  }
}

TEST(UnidirectionalFatigue, DirectionsAreFittedFromTheirOwnRecords) {
  std::vector<kx::SnRecord> along, across;
  for (const auto& set : publishedSets()) {
    if (set.id == "sn_ge1_ud0_R0.1_RT") {
      along = set.records;
    }
    if (set.id == "sn_ge1_ud90_R0.1_RT") {
      across = set.records;
    }
  }
  auto both = along;
  both.insert(both.end(), across.begin(), across.end());
  const auto strengths = strengthsOf("");
  const auto fit = kx::fitUnidirectionalFatigue(both, 296.15, strengths, glassEpoxy());
  const auto one = kx::fitUnidirectionalFatigue(along, 296.15, strengths, glassEpoxy());
  const auto other = kx::fitUnidirectionalFatigue(across, 296.15, strengths, glassEpoxy());
  EXPECT_EQ(fit.longitudinal.constants.breakingEnergy, one.longitudinal.constants.breakingEnergy);
  EXPECT_EQ(fit.transverse.constants.breakingEnergy, other.transverse.constants.breakingEnergy);
}

TEST(UnidirectionalFatigue, WithoutRecordsBothDirectionsComeFromTheStrengths) {
  const auto fit = kx::fitUnidirectionalFatigue({}, 296.15, strengthsOf(""), glassEpoxy());
  EXPECT_GT(fit.longitudinal.constants.breakingEnergy, 0.0);
  EXPECT_GT(fit.transverse.constants.breakingEnergy, 0.0);
}

TEST(UnidirectionalFatigue, RatiosTogetherGiveTheMeasuredOrderOfLives) {
  std::vector<kx::SnRecord> records;
  for (const auto& set : publishedSets()) {
    if (set.id == "sn_ge1_ud0_R0.1_RT" || set.id == "sn_ge1_ud0_R-1_RT") {
      records.insert(records.end(), set.records.begin(), set.records.end());
    }
  }
  const auto fit = kx::fitUnidirectionalFatigue(records, 296.15, strengthsOf(""), glassEpoxy());
  double last = -HUGE_VAL;
  for (const double ratio : {-1.0, 0.1, 0.5}) {
    const double life = kx::lnTimeToFailure(fit.longitudinal.constants,
                                            {350e6 * glassEpoxy().longitudinal, ratio, 296.15});
    EXPECT_GT(life, last) << ratio;
    last = life;
  }
}

}  // namespace
