// SPDX-License-Identifier: BSD-3-Clause
#include "composite/SatinWeave.h"

#include <memory>
#include <utility>

#include "composite/MicromechanicsCalls.h"
#include "console/Messages.h"
#include "console/Output.h"
#include "datafile/WeaveXML.h"

namespace lamcraft {

namespace {

constexpr const char* kCompositeType = "composite";

/// What the library takes for a value that was not given.
constexpr double kNotGivenModulus = -1.0;

std::unique_ptr<ParentCons> makeTow(const std::int32_t number,
                                    const char* const name,
                                    std::unique_ptr<Constituent> matrix,
                                    std::unique_ptr<Constituent> fiber) {
  auto tow = std::make_unique<ParentCons>(number, name, kCompositeType);
  tow->add(std::move(matrix));
  tow->add(std::move(fiber));
  return tow;
}

}  // namespace

SatinWeave::SatinWeave(const std::string& fiberType,
                       const std::string& matrixType,
                       const std::int32_t harness)
    : harness_(harness) {
  const auto matrix = [&](const char* const name) {
    return std::make_unique<Constituent>(1, name, matrixType);
  };
  const auto fiber = [&](const char* const name) {
    return std::make_unique<Constituent>(2, name, fiberType);
  };
  using namespace constituents;
  add(matrix(kMatrixPocket));
  add(makeTow(2, kFill, matrix(kFillMatrix), fiber(kFillFiber)));
  add(makeTow(3, kWarp, matrix(kWarpMatrix), fiber(kWarpFiber)));
  add(std::make_unique<Constituent>(4, kInterface, kCompositeType));
}

bool SatinWeave::validate(std::ostream& /*messages*/) const {
  constexpr double kLeastFiberFactor = 1e-10;
  constexpr double kLeastMatrixFactor = 1e-5;
  // A refusal has no text of its own: the caller's headline says all there is.
  return isPlain() || (get(constituents::kFillFiber).degradation >= kLeastFiberFactor &&
                       get(constituents::kFillMatrix).degradation >= kLeastMatrixFactor);
}

bool SatinWeave::write(const std::string& path, const DataFile /*file*/) const {
  WeaveXML document(path);
  return document.writeDocument(*this, false);
}

EnvironmentRecord& SatinWeave::addEnvironment(const std::string_view moistureText,
                                              const double temperature) {
  EnvironmentRecord& environment = Composite::addEnvironment(moistureText, temperature);
  environment.damageStates = allDamageStates();
  environment.fatigueDamageStates = fatigueDamageStates();
  return environment;
}

void SatinWeave::printTitle() const {
  console::Output out;
  if (isPlain()) {
    out.message(console::kSolvingPlainWeave).endLine();
  } else {
    out.message(console::kSolving)
        .wideNumber(harness_)
        .message(console::kHarnessSatinWeave)
        .endLine();
  }
  out.text(materialName).endLine().endLine();
}

void SatinWeave::fit(const std::string& folder, EnvironmentRecord& environment) const {
  double& g13 = environment.lamina.working(Property::g13);
  if (g13 <= 0.0) {
    g13 = kNotGivenModulus;
  }
  micromechanics::setIsotropyFlag(environment);
  micromechanics::fitWeave(geometry(), folder, environment);
}

micromechanics::PrefailOutcome SatinWeave::reduceShear(const std::string& folder,
                                                       EnvironmentRecord& environment) const {
  return micromechanics::reduceWeaveShear(geometry(), folder, environment);
}

void SatinWeave::finish(const std::string& folder, EnvironmentRecord& environment) const {
  for (DamageStateRecord& record : environment.damageStates) {
    computeDamageState(folder, environment, 0, record);
  }
  console::Output().endLine();
  if (presence.snData && harness_ == 1) {
    runFatigue(folder, environment);
  }
}

micromechanics::WeaveGeometry SatinWeave::geometry() const {
  using namespace constituents;
  // Both tows are made of the fill tow's constituents.
  return {harness_,
          {get(kFill).volumeFraction.value(), get(kWarp).volumeFraction.value()},
          get(kFillFiber).volumeFraction.value(),
          get(kFillFiber).degradation,
          get(kFillMatrix).degradation};
}

void SatinWeave::runFatigue(const std::string& folder, EnvironmentRecord& environment) const {
  console::Output().message(console::kFatigueDamageStates).endLine();
  const std::int32_t snCount = micromechanics::snCountOf(environment);
  for (DamageStateRecord& record : environment.fatigueDamageStates) {
    computeDamageState(folder, environment, snCount, record);
    micromechanics::decomposeForFatigue(record);
  }
  micromechanics::fitWeaveFatigue(geometry(), environment);
}

void SatinWeave::computeDamageState(const std::string& folder,
                                    const EnvironmentRecord& environment,
                                    const std::int32_t snCount,
                                    DamageStateRecord& record) const {
  console::Output().message(console::kDamageState).text(" ").number(record.state).endLine();
  micromechanics::computeDamageState(geometry(), folder, environment, snCount, record);
}

}  // namespace lamcraft
