// SPDX-License-Identifier: BSD-3-Clause
#include "verdict/LifeScatter.h"

#include <cmath>

#include "elastic/Voigt.h"
#include "fatigue/UnidirectionalFatigue.h"
#include "lamina/Concentration.h"
#include "model/Constituent.h"

namespace lamkit {

namespace {

using lamcraft::UniStrength;

kx::BondConstants constantsFrom(const ResultRow& row) {
  return {row[0], row[1], row[2], row[3], row[4], row[5]};
}

double strengthOf(const EnvironmentData& environment, const UniStrength strength) {
  return environment.strengths[static_cast<std::size_t>(strength)].value();
}

/// The tests of both directions as the engine's fit sees them.
struct Directions {
  kx::DirectionData along;
  kx::DirectionData across;
};

Directions directionsOf(const EnvironmentData& environment, const double fiberFraction) {
  const auto phase = [](const PropertyValues& set) {
    return kx::transverselyIsotropic(kx::propertiesFrom(valuesOf(set).data()));
  };
  const auto matrix = phase(environment.matrix());
  const auto lamina = kx::homogenise(phase(environment.fiber()), matrix, fiberFraction);
  const auto stress = kx::concentration(matrix, lamina.matrix, lamina.effective).stress;

  const double shear = strengthOf(environment, UniStrength::s12);
  kx::DirectionalTests along(
      {strengthOf(environment, UniStrength::t1), strengthOf(environment, UniStrength::c1)}, shear);
  kx::DirectionalTests across(
      {strengthOf(environment, UniStrength::t2), strengthOf(environment, UniStrength::c2)}, shear);
  for (const SnRecord& test : environment.snRecords) {
    const kx::SnRecord record{test.stress, test.life, test.frequency, test.angle, test.ratio};
    if (kx::loadAxis(test.angle) == kx::LoadAxis::along) {
      along.addAxial(record);
    } else {
      const auto load = kx::loadDirection(test.angle);
      across.addOblique(record, load.sine * load.sine, load.sine * load.cosine);
    }
  }
  return {along.data(stress(kx::k11, kx::k11)), across.data(stress(kx::k22, kx::k22))};
}

/// Adds the squares of one direction.
void addSquares(const kx::DirectionData& direction,
                const kx::BondConstants& constants,
                const double temperature,
                double& sum,
                std::size_t& count) {
  for (const kx::LifeTest& test : direction.tests) {
    const double seconds = kx::lnTimeToFailure(
        constants, {test.peak * direction.concentration, test.ratio, temperature});
    const double decades =
        (seconds + std::log(test.frequency) - std::log(test.life)) / std::log(10.0);
    if (std::isfinite(decades)) {
      sum += decades * decades;
      ++count;
    }
  }
}

}  // namespace

double lawScatter(const Subject& subject, const std::size_t index) {
  const EnvironmentData& environment = subject.folder.withFatigue(index);
  const FittedConstituent* const matrix = environment.find(lamcraft::constituents::kMatrix);
  const ConstituentData* const fiber = subject.folder.data.find(lamcraft::constituents::kFiber);
  if (matrix == nullptr || !matrix->fatigue || fiber == nullptr) {
    return 0.0;
  }
  const Directions directions = directionsOf(environment, fiber->volumeFraction.value());
  double sum = 0.0;
  std::size_t count = 0;
  addSquares(
      directions.along, constantsFrom((*matrix->fatigue)[0]), environment.temperature, sum, count);
  addSquares(
      directions.across, constantsFrom((*matrix->fatigue)[1]), environment.temperature, sum, count);
  return count > 0 ? std::sqrt(sum / static_cast<double>(count)) : 0.0;
}

}  // namespace lamkit
