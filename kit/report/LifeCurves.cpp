// SPDX-License-Identifier: BSD-3-Clause
#include "report/LifeCurves.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "elastic/TransverselyIsotropic.h"
#include "elastic/Voigt.h"
#include "fatigue/PlainWeaveFatigue.h"
#include "fatigue/UnidirectionalFatigue.h"
#include "fit/Constituents.h"
#include "lamina/Concentration.h"
#include "lamina/UnidirectionalLamina.h"
#include "model/Constituent.h"

namespace lamkit {

namespace {

namespace names = lamcraft::constituents;

constexpr int kCurvePoints = 40;
constexpr std::int32_t kPlainWeave = 1;  ///< the one weave that fatigue is fitted for

kx::SnRecord recordOf(const SnRecord& record) {
  return {record.stress, record.life, record.frequency, record.angle, record.ratio};
}

/// What drives fatigue under a load at an angle, and by which constants.
struct Drive {
  const kx::BondConstants* constants;
  double stress;        ///< stress in the matrix per stress of the load
  std::size_t tension;  ///< places of the strengths of either sense
  std::size_t compression;
  bool isAlong;  ///< whether a test belongs to it that is along axis 1 (of a weave: 1 or 2)
};

bool isCompressive(const SnRecord& test) {
  return std::abs(test.ratio) > 1.0 || (test.stress < 0.0 && test.ratio != -1.0);
}

/// The fatigue law of one environment.
class LifeModel {
 public:
  LifeModel(const MaterialFolder& folder, const EnvironmentData& environment)
      : environment_(environment) {
    if (folder.data.harness == kPlainWeave) {
      fitWeave();
    } else if (!folder.data.isWoven()) {
      readPly(folder.data);
    }
  }

  /// Cycles to failure; nothing where there are no constants for this load.
  [[nodiscard]] std::optional<double> life(const SnRecord& test, const double stress) const {
    const std::optional<Drive> drive = driveOf(test.angle);
    if (!drive || !(drive->constants->breakingEnergy > 0.0) || !(drive->stress > 0.0)) {
      return std::nullopt;
    }
    // A ratio beyond one is that of a load whose compression governs.
    const double ratio = std::abs(test.ratio) > 1.0 ? 1.0 / test.ratio : test.ratio;
    const kx::StressCycle cycle{
        stress * drive->stress * senseFactor(test, *drive), ratio, environment_.temperature};
    const double seconds = std::exp(kx::lnTimeToFailure(*drive->constants, cycle));
    return test.frequency > 0.0 ? seconds * test.frequency : seconds;
  }

 private:
  void readPly(const MaterialData& data);
  void fitWeave();
  [[nodiscard]] std::optional<Drive> driveOf(double angle) const;
  [[nodiscard]] Drive plyDrive(double angle) const;
  [[nodiscard]] std::optional<Drive> weaveDrive(double angle) const;
  /// Beside tests that pull, one that pushes counts with the same part of its own strength.
  [[nodiscard]] double senseFactor(const SnRecord& test, const Drive& drive) const;
  [[nodiscard]] double strength(const std::size_t place) const {
    return environment_.strengths[place].value();
  }

  const EnvironmentData& environment_;
  bool isWoven_ = false;
  kx::BondConstants longitudinal_;
  kx::BondConstants transverse_;
  kx::MatrixConcentration matrix_;  ///< of a ply
  kx::TowMatrixStress tows_;        ///< of a weave
};

kx::BondConstants constantsOf(const ResultRow& row) {
  return {row[0], row[1], row[2], row[3], row[4], row[5]};
}

void LifeModel::readPly(const MaterialData& data) {
  const FittedConstituent* const matrix = environment_.find(names::kMatrix);
  const ConstituentData* const fiber = data.find(names::kFiber);
  if (matrix == nullptr || !matrix->fatigue || fiber == nullptr) {
    return;
  }
  longitudinal_ = constantsOf(matrix->fatigue->front());
  transverse_ = constantsOf(matrix->fatigue->back());
  const auto phaseOf = [](const PropertyValues& values) {
    return kx::transverselyIsotropic(kx::propertiesFrom(valuesOf(values).data()));
  };
  const auto matrixPhase = phaseOf(environment_.matrix());
  const auto lamina =
      kx::homogenise(phaseOf(environment_.fiber()), matrixPhase, fiber->volumeFraction.value());
  const auto field = kx::concentration(matrixPhase, lamina.matrix, lamina.effective);
  matrix_ = {field.stress(kx::k11, kx::k11), field.stress(kx::k22, kx::k22)};
}

void LifeModel::fitWeave() {
  isWoven_ = true;
  const auto stressOf = [this](const char* const name) -> kx::Matrix6 {
    const FittedConstituent* const found = environment_.find(name);
    if (found == nullptr || found->decompositions.empty()) {
      return kx::Matrix6::Zero();
    }
    return Eigen::Map<const kx::Matrix6>(found->decompositions.front().slot.stress.data());
  };
  const kx::WeaveDecomposition weave{stressOf(names::kFill),
                                     stressOf(names::kWarp),
                                     stressOf(names::kFillMatrix),
                                     stressOf(names::kWarpMatrix)};
  std::vector<kx::SnRecord> records;
  for (const SnRecord& record : environment_.snRecords) {
    records.push_back(recordOf(record));
  }
  const kx::WeaveStrengths strengths{
      {strength(0), strength(2)}, {strength(1), strength(3)}, strength(4), strength(5)};
  const kx::FatigueFit fit =
      kx::fitPlainWeaveFatigue(records, environment_.temperature, strengths, weave);
  longitudinal_ = fit.longitudinal.constants;
  transverse_ = fit.transverse.constants;
  tows_ = kx::towMatrixStress(weave);
}

template <typename Strength>
std::size_t placeOf(const Strength strength) {
  return static_cast<std::size_t>(strength);
}

Drive LifeModel::plyDrive(const double angle) const {
  using lamcraft::UniStrength;
  if (kx::loadAxis(angle) == kx::LoadAxis::along) {
    return {&longitudinal_,
            matrix_.longitudinal,
            placeOf(UniStrength::t1),
            placeOf(UniStrength::c1),
            true};
  }
  const kx::LoadDirection direction = kx::loadDirection(angle);
  const double normal = direction.sine * direction.sine;
  const double shear = direction.sine * direction.cosine;
  const double transverse = strength(placeOf(UniStrength::t2));
  const double inPlane = strength(placeOf(UniStrength::s12));
  const double weight = transverse > 0.0 && inPlane > 0.0 ? transverse / inPlane : 1.0;
  return {&transverse_,
          matrix_.transverse * std::hypot(normal, weight * shear),
          placeOf(UniStrength::t2),
          placeOf(UniStrength::c2),
          false};
}

std::optional<Drive> LifeModel::weaveDrive(const double angle) const {
  using lamcraft::WeaveStrength;
  const kx::LoadAxis axis = kx::loadAxis(angle);
  if (axis == kx::LoadAxis::oblique) {
    return std::nullopt;  // two stresses drive there, in fill and in warp
  }
  return Drive{&longitudinal_,
               axis == kx::LoadAxis::along ? tows_.fillAlong : tows_.warpAlong,
               placeOf(WeaveStrength::t1),
               placeOf(WeaveStrength::c1),
               true};
}

std::optional<Drive> LifeModel::driveOf(const double angle) const {
  return isWoven_ ? weaveDrive(angle) : plyDrive(angle);
}

double LifeModel::senseFactor(const SnRecord& test, const Drive& drive) const {
  const auto pulls = [this, &drive](const SnRecord& other) {
    const std::optional<Drive> its = driveOf(other.angle);
    return its && its->isAlong == drive.isAlong && !isCompressive(other);
  };
  const auto& tests = environment_.snRecords;
  if (!isCompressive(test) || std::none_of(tests.begin(), tests.end(), pulls)) {
    return 1.0;
  }
  const double tension = strength(drive.tension);
  const double compression = strength(drive.compression);
  return tension > 0.0 && compression > 0.0 ? tension / compression : 1.0;
}

/// 0 where a life is a time.
double meanFrequency(const std::vector<SnRecord>& records) {
  double sum = 0.0;
  for (const SnRecord& record : records) {
    if (!(record.frequency > 0.0)) {
      return 0.0;
    }
    sum += std::log(record.frequency);
  }
  return std::exp(sum / static_cast<double>(records.size()));
}

/// Nothing where the model has no life for one of the tests.
std::optional<double> scatterOf(const std::vector<SnRecord>& records, const LifeModel& model) {
  double sum = 0.0;
  for (const SnRecord& record : records) {
    const std::optional<double> life = model.life(record, std::abs(record.stress));
    if (!life || !(*life > 0.0) || !(record.life > 0.0)) {
      return std::nullopt;
    }
    const double distance = std::log10(*life / record.life);
    sum += distance * distance;
  }
  return std::sqrt(sum / static_cast<double>(records.size()));
}

LifeSeries seriesOf(const std::vector<SnRecord>& records, const LifeModel& model) {
  LifeSeries series;
  series.angle = records.front().angle;
  series.ratio = records.front().ratio;
  series.frequency = meanFrequency(records);
  double lowest = std::abs(records.front().stress);
  double highest = lowest;
  for (const SnRecord& record : records) {
    series.tests.push_back({std::abs(record.stress), record.life});
    lowest = std::min(lowest, series.tests.back().stress);
    highest = std::max(highest, series.tests.back().stress);
  }
  series.scatter = scatterOf(records, model);
  if (!series.scatter) {
    return series;
  }
  SnRecord like = records.front();
  like.frequency = series.frequency;
  for (int i = 0; i <= kCurvePoints; ++i) {
    const double stress = lowest + (highest - lowest) * i / kCurvePoints;
    series.curve.push_back({stress, model.life(like, stress).value_or(0.0)});
  }
  return series;
}

}  // namespace

LifeChart lifeChart(const MaterialFolder& folder, const std::size_t environment) {
  const EnvironmentData& data = folder.withFatigue(environment);
  LifeChart chart;
  if (data.snRecords.empty()) {
    return chart;
  }
  chart.isRecomputed = folder.data.harness == kPlainWeave;
  std::map<std::pair<double, double>, std::vector<SnRecord>> groups;
  for (const SnRecord& record : data.snRecords) {
    groups[{record.angle, record.ratio}].push_back(record);
  }
  const LifeModel model(folder, data);
  for (const auto& group : groups) {
    chart.series.push_back(seriesOf(group.second, model));
  }
  return chart;
}

}  // namespace lamkit
