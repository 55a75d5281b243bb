// SPDX-License-Identifier: BSD-3-Clause
#include "composite/MicromechanicsCalls.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <limits>
#include <vector>

#include "lamcraft/kxdriver.h"

namespace lamcraft::micromechanics {

namespace {

/// Stands where the library expects a text that a call does not use.
constexpr const char* kDummyText = "DUMB";
constexpr std::int32_t kZero = 0;

std::array<double, kStrengthCount> valuesOf(
    const std::array<VariableProperty, kStrengthCount>& strengths) {
  std::array<double, kStrengthCount> values{};
  std::transform(
      strengths.begin(), strengths.end(), values.begin(), [](const VariableProperty& strength) {
        return strength.value();
      });
  return values;
}

template <typename Element>
std::int32_t countOf(const std::vector<Element>& list) {
  constexpr auto kMost = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());
  return static_cast<std::int32_t>(std::min(list.size(), kMost));
}

/// The library gets an address also for an empty list.
const double* firstOf(const std::vector<SnRecord>& records) {
  static constexpr SnRecord kNone{};
  return records.empty() ? &kNone.stress : &records.front().stress;
}

/// Fit and prefail know two kinds of weave: plain, harness number 1, and all others.
std::int32_t satinFlag(const WeaveGeometry& weave) {
  return weave.harness != 1 ? 1 : 0;
}

/// For damage states a harness number below 1 counts as plain too.
std::int32_t damageStateSatinFlag(const WeaveGeometry& weave) {
  return weave.harness > 1 ? 1 : 0;
}

}  // namespace

void setMaximumErrors(const Composite& composite) {
  const std::int32_t kind = reportedCount(composite);
  for (std::size_t i = 0; i < composite.maximumErrors.size(); ++i) {
    const auto selector = static_cast<std::int32_t>(i + 1);
    SETMAXERROR(&kind, &selector, &composite.maximumErrors[i]);
  }
}

void setIsotropyFlag(const EnvironmentRecord& environment) {
  const std::int32_t isotropic = environment.matrix.symmetry == Symmetry::isotropic ? 1 : 0;
  SETISOFLAG(&isotropic);
}

std::int32_t snCountOf(const EnvironmentRecord& environment) {
  return countOf(environment.snRecords);
}

Status status() {
  Status answer{};
  answer.goOn = INSITU_STATUS(&answer.iteration, &answer.error) == 0;
  return answer;
}

MaterialSystem defaultProperties(const std::int32_t code, const std::string& name) {
  std::array<double, kPropertyCount> fiber{};
  std::array<double, kPropertyCount> matrix{};
  std::array<double, 2> block{};
  FHT_GETDEFPROPS(&code, fiber.data(), matrix.data(), &block[1], block.data());
  MaterialSystem system;
  system.code = code;
  system.name = name;
  system.fiber.load(fiber.data(), Symmetry::transverse23);
  system.matrix.load(matrix.data(), Symmetry::transverse23);
  return system;
}

void fitUnidirectional(const double fiberVolumeFraction, EnvironmentRecord& environment) {
  assert(environment.resultRows.size() >= 2);
  const auto strengths = valuesOf(environment.strengths);
  const std::int32_t snCount = snCountOf(environment);
  UNI_OPTIMIZATION(&fiberVolumeFraction,
                   environment.lamina.working(),
                   environment.fiber.working(),
                   environment.matrix.working(),
                   &environment.temperature,
                   &snCount,
                   firstOf(environment.snRecords),
                   environment.resultRows[0].data(),
                   environment.resultRows[1].data(),
                   strengths.data(),
                   &environment.errors.initialMechanical,
                   &environment.iterations.mechanical);
}

PrefailOutcome reduceUnidirectionalShear(const double fiberVolumeFraction,
                                         EnvironmentRecord& environment) {
  const double strength = environment.strengths[static_cast<std::size_t>(UniStrength::s12)].value();
  const std::int32_t pointCount = countOf(environment.shearStress);
  PrefailConstants& constants = environment.prefail;
  PrefailOutcome outcome;
  PREFAIL(&fiberVolumeFraction,
          environment.matrix.working(),
          environment.fiber.working(),
          environment.lamina.working(),
          &strength,
          environment.shearStress.data(),
          environment.shearStrain.data(),
          &pointCount,
          &constants.m,
          &constants.b,
          &constants.thr,
          constants.c2mdeg.data(),
          &outcome.failed,
          &outcome.code);
  return outcome;
}

void fitWeave(const WeaveGeometry& weave,
              const std::string& folder,
              EnvironmentRecord& environment) {
  const std::int32_t satin = satinFlag(weave);
  WEAVE_OPTIMIZATION(&weave.harness,
                     weave.towFractions.data(),
                     &weave.fiberFractionInTow,
                     environment.lamina.working(),
                     environment.fiber.working(),
                     environment.matrix.working(),
                     &environment.errors.initialMechanical,
                     &environment.iterations.mechanical,
                     kDummyText,
                     folder.c_str(),
                     kDummyText,
                     &kZero,
                     &satin);
}

PrefailOutcome reduceWeaveShear(const WeaveGeometry& weave,
                                const std::string& folder,
                                EnvironmentRecord& environment) {
  const double strength =
      environment.strengths[static_cast<std::size_t>(WeaveStrength::s12)].value();
  const std::int32_t pointCount = countOf(environment.shearStress);
  const std::int32_t satin = satinFlag(weave);
  PrefailConstants& constants = environment.prefail;
  PrefailOutcome outcome;
  WEAVE_PREFAIL(&weave.harness,
                weave.towFractions.data(),
                &weave.fiberFractionInTow,
                environment.matrix.working(),
                environment.fiber.working(),
                environment.lamina.working(),
                &strength,
                environment.shearStress.data(),
                environment.shearStrain.data(),
                folder.c_str(),
                &pointCount,
                &constants.m,
                &constants.b,
                &constants.thr,
                constants.c2mdeg.data(),
                &outcome.failed,
                &outcome.code,
                &satin);
  return outcome;
}

void computeDamageState(const WeaveGeometry& weave,
                        const std::string& folder,
                        const EnvironmentRecord& environment,
                        const std::int32_t snCount,
                        DamageStateRecord& record) {
  const std::int32_t satin = damageStateSatinFlag(weave);
  WEAVE_DAMAGE_STATE(&record.pocketCode,
                     &record.fillCode,
                     &record.warpCode,
                     &weave.harness,
                     weave.towFractions.data(),
                     &weave.fiberFractionInTow,
                     environment.fiber.working(),
                     environment.matrix.working(),
                     &weave.fiberDegradation,
                     &weave.matrixDegradation,
                     record.set(DamageSet::composite).data(),
                     record.set(DamageSet::matrixPocket).data(),
                     record.set(DamageSet::fill).data(),
                     record.set(DamageSet::warp).data(),
                     record.set(DamageSet::fillFiber).data(),
                     record.set(DamageSet::fillMatrix).data(),
                     record.set(DamageSet::warpFiber).data(),
                     record.set(DamageSet::warpMatrix).data(),
                     record.unitCell.front().stress.data(),
                     record.fillTow.front().stress.data(),
                     record.warpTow.front().stress.data(),
                     &snCount,
                     kDummyText,
                     weave.harness >= 2 ? folder.c_str() : kDummyText,
                     kDummyText,
                     &kZero,
                     &satin);
}

void decomposeForFatigue(DamageStateRecord& record) {
  FAT_DCMP_PROPS(record.set(DamageSet::composite).data(),
                 record.set(DamageSet::matrixPocket).data(),
                 record.set(DamageSet::fill).data(),
                 record.set(DamageSet::warp).data(),
                 record.set(DamageSet::fillFiber).data(),
                 record.set(DamageSet::fillMatrix).data(),
                 record.set(DamageSet::warpFiber).data(),
                 record.set(DamageSet::warpMatrix).data(),
                 record.unitCell.front().stress.data(),
                 record.fillTow.front().stress.data(),
                 record.warpTow.front().stress.data(),
                 &record);
}

void fitWeaveFatigue(const WeaveGeometry& weave, EnvironmentRecord& environment) {
  assert(environment.resultRows.size() >= 4);
  const auto strengths = valuesOf(environment.strengths);
  const std::int32_t snCount = snCountOf(environment);
  FATIGUE_PW_OPTI(environment.resultRows[0].data(),
                  environment.resultRows[1].data(),
                  environment.resultRows[2].data(),
                  environment.resultRows[3].data(),
                  &snCount,
                  firstOf(environment.snRecords),
                  &environment.temperature,
                  strengths.data(),
                  weave.towFractions.data(),
                  &weave.fiberFractionInTow,
                  &environment.errors.initialMechanical,
                  &environment.iterations.fatigue);
}

}  // namespace lamcraft::micromechanics
