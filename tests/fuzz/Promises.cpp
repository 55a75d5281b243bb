// SPDX-License-Identifier: BSD-3-Clause
#include "fuzz/Promises.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include "fit/ConstituentSpace.h"
#include "fit/MatrixSymmetry.h"
#include "fuzz/Target.h"
#include "lamina/UnidirectionalLamina.h"
#include "weave/model/WeaveDescription.h"

namespace lamcraft::fuzz {
namespace {

namespace test = kx::test;
using kx::Properties;
using Member = double Properties::*;

constexpr std::array<Member, 5> kLaminaTargets{
    &Properties::e11, &Properties::e22, &Properties::v12, &Properties::v23, &Properties::g12};
constexpr std::array<Member, 9> kPlyTargets{&Properties::e11,
                                            &Properties::e22,
                                            &Properties::e33,
                                            &Properties::v12,
                                            &Properties::v13,
                                            &Properties::v23,
                                            &Properties::g12,
                                            &Properties::g13,
                                            &Properties::g23};
constexpr std::array<Member, 2> kLaminaExpansions{&Properties::a11, &Properties::a22};
constexpr std::array<Member, 3> kPlyExpansions{
    &Properties::a11, &Properties::a22, &Properties::a33};

// The same operations on the same numbers, which a compiler may order otherwise.
constexpr double kRounding = 1e-9;

template <typename... Numbers>
bool areFinite(const Numbers&... numbers) {
  const auto isFinite = [](const double number) { return std::isfinite(number); };
  return (... && std::all_of(numbers.begin(), numbers.end(), isFinite));
}

template <typename... Numbers>
bool areZero(const Numbers&... numbers) {
  const auto isZero = [](const double number) { return number == 0.0; };
  return (... && std::all_of(numbers.begin(), numbers.end(), isZero));
}

/// The same bits, of what is no number, too.
template <typename Numbers>
bool isSame(const Numbers& one, const Numbers& other) {
  const auto* const from = reinterpret_cast<const unsigned char*>(one.begin());
  const auto* const to = reinterpret_cast<const unsigned char*>(one.end());
  return std::equal(from, to, reinterpret_cast<const unsigned char*>(other.begin()));
}

bool isFraction(const double value) {
  return value > 0.0 && value < 1.0;
}

bool isClose(const double one, const double other) {
  return std::abs(one - other) <= kRounding * std::max(std::abs(one), std::abs(other));
}

Properties of(const test::Out<double, 12>& numbers) {
  return kx::propertiesFrom(numbers.data());
}
Properties of(const test::In<double, 12>& numbers) {
  return kx::propertiesFrom(numbers.data());
}

/// Isotropic in 2-3, to the last bit.
bool isSymmetric(const Properties& p) {
  return p.e22 == p.e33 && p.v12 == p.v13 && p.g12 == p.g13 && p.a22 == p.a33 &&
         p.g23 == p.e22 / (2.0 * (1.0 + p.v23));
}

bool isIsotropic(const Properties& p) {
  return isSymmetric(p) && p.e11 == p.e22 && p.v12 == p.v23 && p.g12 == p.g23 && p.a11 == p.a22;
}

/// Root mean square of the relative deviations from the targets that `isGiven`.
template <typename Members, typename IsGiven>
double deviation(const Properties& value,
                 const Properties& target,
                 const Members& members,
                 const IsGiven isGiven) {
  double sum = 0.0;
  int count = 0;
  for (const Member member : members) {
    if (isGiven(target.*member)) {
      const double relative = value.*member / (target.*member) - 1.0;
      sum += relative * relative;
      ++count;
    }
  }
  return count == 0 ? 0.0 : std::sqrt(sum / count);
}

template <typename Members>
double elasticError(const Properties& value, const Properties& target, const Members& members) {
  return deviation(value, target, members, [](const double number) { return number > 0.0; });
}
template <typename Members>
double thermalError(const Properties& value, const Properties& target, const Members& members) {
  return deviation(value, target, members, [](const double number) { return number != 0.0; });
}

/// Of a fit of constituents, for which there are two pairs of errors and two counts.
template <typename Call>
void requireErrors(const Call& call) {
  const auto& errors = call.errors;
  const auto& iterations = call.iterations;
  for (std::size_t fit = 0; fit < 2; ++fit) {
    require(std::isfinite(errors[2 * fit]) && std::isfinite(errors[2 * fit + 1]) &&
                errors[2 * fit] >= 0.0 && errors[2 * fit + 1] >= 0.0,
            "errors are no less than zero, and finite");
    require(errors[2 * fit + 1] <= errors[2 * fit] || iterations[fit] == 0,
            "no fit ends worse than it started");
    require(iterations[fit] >= 0, "iterations are counted");
  }
  require(errors[4] == test::kUntouched && errors[5] == test::kUntouched &&
              iterations[2] == test::kUntouched,
          "the fatigue fit's errors and iterations are left alone");
}

template <typename... Numbers>
bool areNoNumbers(const Numbers&... numbers) {
  const auto isNoNumber = [](const double number) { return std::isnan(number); };
  return (... && std::all_of(numbers.begin(), numbers.end(), isNoNumber));
}

/// Whether a fit found no model, which it says in every constant.
template <typename Call>
bool isWithoutModel(const Call& after) {
  return areNoNumbers(after.lamina, after.fiber, after.matrix) &&
         std::all_of(after.errors.begin(),
                     after.errors.begin() + 4,
                     [](const double error) { return error == 1.0; }) &&
         after.iterations[0] == 0 && after.iterations[1] == 0;
}

/// The smallest numbers have few digits.
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();

void requireModulusBounds(const double from, const double to) {
  constexpr double kWider = 1.0 + kRounding;
  require(to >= from / kx::kModulusFactor / kWider - kSmallest &&
              to <= from * kx::kModulusFactor * kWider + kSmallest,
          "a fitted modulus is within its bounds");
}

void requireRatioBounds(const double from,
                        const double to,
                        const double lowest,
                        const double highest) {
  const double rounding = kRounding * std::max(1.0, std::abs(from));
  require(to >= std::min(from, lowest) - rounding && to <= std::max(from, highest) + rounding,
          "a fitted Poisson's ratio is within its bounds");
}

/// Of five constants in the order of kElasticMembers.
template <typename Unknowns>
void requireBounds(const kx::TransverselyIsotropic& fitted,
                   const kx::TransverselyIsotropic& start,
                   const Unknowns& unknowns) {
  auto unknown = unknowns.begin();
  for (const auto member : kx::kElasticMembers<double>) {
    if (unknown->isRatio()) {
      requireRatioBounds(start.*member, fitted.*member, unknown->lowest, unknown->highest);
    } else {
      requireModulusBounds(start.*member, fitted.*member);
    }
    ++unknown;
  }
}

void requireIsotropicBounds(const kx::TransverselyIsotropic& fitted,
                            const kx::TransverselyIsotropic& start) {
  requireModulusBounds(start.g12, fitted.g12);
  requireRatioBounds(start.v12, fitted.v12, kx::kLowestMatrixRatio, kx::kHighestMatrixRatio);
}

/// Of constituents that a fit has moved.
template <typename Call>
void requireConstituents(const Call& before, const Call& after, const kx::MatrixStart& start) {
  const Properties fiber = of(after.fiber);
  const Properties matrix = of(after.matrix);
  require(kx::isAdmissible(fiber) && kx::isAdmissible(matrix),
          "fitted constituents are finite and admissible");
  require(isSymmetric(fiber) && isSymmetric(matrix), "fitted constituents are isotropic in 2-3");
  requireBounds(kx::transverselyIsotropic(fiber),
                kx::transverselyIsotropic(of(before.fiber)),
                kx::kFiberUnknowns);
  const auto fitted = kx::transverselyIsotropic(matrix);
  if (start.symmetry == kx::MatrixSymmetry::isotropic) {
    require(isIsotropic(matrix), "an isotropic matrix stays isotropic");
    requireIsotropicBounds(fitted, start.constants);
  } else {
    requireBounds(fitted, start.constants, kx::kTransverseMatrixUnknowns);
  }
}

/// Six constants of the breaking and healing of bonds, or zeros.
void requireBonds(const double* const row) {
  enum : std::size_t { breaking, healing, breakingActivation, healingActivation, transfer, factor };
  const bool isFitted = row[breaking] > 0.0 && row[healing] == row[breaking] &&
                        row[breakingActivation] >= 0.0 &&
                        row[healingActivation] == row[breakingActivation] && row[transfer] == 1.0 &&
                        row[factor] >= 0.0;
  require(std::all_of(row, row + 6, [](const double number) { return std::isfinite(number); }),
          "fatigue constants are finite");
  require(isFitted || std::all_of(row, row + 6, [](const double number) { return number == 0.0; }),
          "fatigue constants are those of the model, or zeros");
}

bool isTemperature(const double temperature) {
  return std::isfinite(temperature) && temperature > 0.0;
}

/// Whether moduli and expansions are so far from the ends of the range of numbers that no model
/// overflows.
bool isOrdinary(const Properties& p) {
  constexpr double kLarge = 1e30;
  const auto moduli = {p.e11, p.e22, p.g12};
  const auto expansions = {p.a11, p.a22};
  return std::all_of(moduli.begin(),
                     moduli.end(),
                     [](const double e) { return e > 1.0 / kLarge && e < kLarge; }) &&
         std::all_of(expansions.begin(), expansions.end(), [](const double a) {
           return std::abs(a) < kLarge;
         });
}

/// Whether all that a fit is given is finite, and so far from the ends of the range of numbers that
/// constituents which make a composite have a model.
template <typename Call>
bool isOrdinaryFit(const Call& call) {
  constexpr double kSmall = 1e-30;
  return areFinite(call.lamina, call.fiber, call.matrix) && isOrdinary(of(call.fiber)) &&
         isOrdinary(of(call.matrix)) &&
         std::all_of(call.lamina.begin(), call.lamina.end(), [](const double target) {
           const double size = std::abs(target);
           return size == 0.0 || (size > kSmall && size < 1.0 / kSmall);
         });
}

/// The lamina of a unidirectional fit is what its constituents give.
void requireLamina(const test::UniOptimization& before, const test::UniOptimization& after) {
  const Properties target = of(before.lamina);
  const Properties lamina = of(after.lamina);
  const Properties given =
      kx::properties(kx::homogenise(kx::transverselyIsotropic(of(after.fiber)),
                                    kx::transverselyIsotropic(of(after.matrix)),
                                    after.fiberVolumeFraction)
                         .effective);
  for (const Member member : kx::kPropertyOrder<double>) {
    require(isClose(lamina.*member, given.*member), "a lamina is what its constituents give");
  }
  require(isClose(1.0 + after.errors[1], 1.0 + elasticError(lamina, target, kLaminaTargets)),
          "the error told is that of the lamina");
  require(isClose(1.0 + after.errors[3], 1.0 + thermalError(lamina, target, kLaminaExpansions)),
          "the thermal error told is that of the lamina");
}

/// Where a law is below the normal numbers its digits are lost.
bool hasDigits(const double number) {
  return std::abs(number) > 1e-290;
}

}  // namespace

void requirePromised(const test::UniOptimization& before,
                     const test::UniOptimization& after,
                     const bool isFlagged) {
  requireErrors(after);
  const auto start = kx::matrixStart(of(before.matrix), isFlagged);
  const bool givesALamina = isFraction(before.fiberVolumeFraction) &&
                            kx::isAdmissible(kx::transverselyIsotropic(of(before.fiber))) &&
                            kx::isAdmissible(start.constants);
  if (isWithoutModel(after)) {
    require(!givesALamina || !isOrdinaryFit(before), "constituents of a lamina have a model");
  } else {
    require(givesALamina, "what makes no lamina has no constants");
    requireConstituents(before, after, start);
    requireLamina(before, after);
  }
  requireBonds(after.fatigueRows.data());
  requireBonds(after.fatigueRows.data() + after.fatigueRows.size() / 2);
  require(
      (!isWithoutModel(after) && isTemperature(after.temperature)) || areZero(after.fatigueRows),
      "without a lamina or a temperature there are no fatigue constants");
}

void requirePromised(const test::WeaveOptimization& before,
                     const test::WeaveOptimization& after,
                     const bool isFlagged) {
  requireErrors(after);
  const bool givesAPly = makesAPly(before.weave, of(before.fiber), of(before.matrix), isFlagged);
  if (isWithoutModel(after)) {
    require(!givesAPly || !isOrdinaryFit(before), "constituents of a ply have a model");
    return;
  }
  require(givesAPly, "what makes no ply has no constants");
  requireConstituents(before, after, kx::matrixStart(of(before.matrix), isFlagged));
  const Properties lamina = of(after.lamina);
  require(kx::isAdmissible(lamina), "a ply is finite and admissible");
  const Properties target = of(before.lamina);
  require(isClose(1.0 + after.errors[1], 1.0 + elasticError(lamina, target, kPlyTargets)),
          "the error told is that of the ply");
  require(isClose(1.0 + after.errors[3], 1.0 + thermalError(lamina, target, kPlyExpansions)),
          "the thermal error told is that of the ply");
}

void requirePromised(const test::ShearReduction& call) {
  const auto& [c0, c1, c2] = std::array<double, 3>{call.c2mdeg[0], call.c2mdeg[1], call.c2mdeg[2]};
  require(std::isfinite(c0) && std::isfinite(c1) && std::isfinite(c2), "c2mdeg is finite");
  const auto failed = call.failed.value();
  const auto code = call.code.value();
  require((failed == 0 && code == 0) || (failed == 1 && code >= 1 && code <= 2),
          "a curve is reduced, or there is a reason");
  const double m = call.m.value();
  const double b = call.b.value();
  const double threshold = call.thr.value();
  if (failed != 0) {
    require(areZero(call.m, call.b, call.thr), "a curve that is not reduced has no law");
    return;
  }
  require(areFinite(call.m, call.b, call.thr), "prefail constants are finite");
  require(m <= 0.0 && b >= 1.0 && threshold >= 0.0, "a law falls from a threshold on");
  require(!hasDigits(m) || !hasDigits(threshold) || isClose(m * threshold + b, 1.0),
          "a law is 1 at its threshold");
}

void requirePromised(const test::WeaveDamageState& before,
                     const test::WeaveDamageState& after,
                     const bool isFlagged) {
  require(isSame(before.pocketCode, after.pocketCode) && isSame(before.fillCode, after.fillCode) &&
              isSame(before.warpCode, after.warpCode),
          "damage codes stay as they are");
  if (areNoNumbers(after.composite, after.matrixPocket, after.fill, after.warp) &&
      areNoNumbers(after.fillFiber, after.fillMatrix, after.warpFiber, after.warpMatrix) &&
      areNoNumbers(after.unitCellBlock, after.fillBlock, after.warpBlock)) {
    require(!makesAPly(before.weave, of(before.fiber), of(before.matrix), isFlagged) ||
                !isOrdinary(of(before.fiber)) || !isOrdinary(of(before.matrix)),
            "a ply has properties");
    return;
  }
  require(makesAPly(before.weave, of(before.fiber), of(before.matrix), isFlagged),
          "what makes no ply has no properties");
  require(kx::isAdmissible(of(after.composite)), "a damaged ply is admissible");
  for (const auto* const part : {&after.matrixPocket,
                                 &after.fill,
                                 &after.warp,
                                 &after.fillFiber,
                                 &after.fillMatrix,
                                 &after.warpFiber,
                                 &after.warpMatrix}) {
    require(kx::isAdmissible(of(*part)) && isSymmetric(of(*part)),
            "the parts of a damaged ply are admissible and isotropic in 2-3");
  }
  require(areFinite(after.unitCellBlock, after.fillBlock, after.warpBlock),
          "concentrations are finite");
}

void requirePromised(const test::FatiguePwOpti& call, const bool isNoted) {
  const auto& [row1, row2, row3, row4] = call.rows;
  requireBonds(row1.data());
  requireBonds(row2.data());
  const auto isError = [](const double number) { return std::isfinite(number) && number >= 0.0; };
  require(std::all_of(row3.begin(), row3.end(), isError) &&
              std::all_of(row4.begin(), row4.end(), isError),
          "standard errors are no less than zero, and finite");
  require(isError(call.errors[4]) && isError(call.errors[5]) && call.iterations.value() >= 0,
          "fatigue errors are no less than zero, and finite");
  require(std::all_of(call.errors.begin(),
                      call.errors.begin() + 4,
                      [](const double error) { return error == test::kUntouched; }),
          "the errors of other fits are left alone");
  if (!isNoted || !isTemperature(call.temperature)) {
    require(areZero(row1, row2, row3, row4) && call.errors[4] == 1.0 && call.errors[5] == 1.0 &&
                call.iterations.value() == 0,
            "without an intact weave or a temperature there are no fatigue constants");
  }
}

void requireDefaults(const std::int32_t system,
                     const test::Out<double, 12>& fiber,
                     const test::Out<double, 12>& matrix) {
  if (system < 1 || system > 18) {
    require(areZero(fiber, matrix), "an unknown system has no properties");
    return;
  }
  require(kx::isAdmissible(of(fiber)) && kx::isAdmissible(of(matrix)),
          "default properties are admissible");
}

bool makesAPly(const test::Weave& weave,
               const Properties& fiber,
               const Properties& matrix,
               const bool isFlagged) {
  kx::WeaveDescription description;
  description.harness = weave.harness;
  description.fillFraction = weave.towFractions[0];
  description.warpFraction = weave.towFractions[1];
  description.fiberFraction = weave.fiberFractionInTow;
  return description.isSensible() && kx::isAdmissible(kx::transverselyIsotropic(fiber)) &&
         kx::isAdmissible(kx::matrixStart(matrix, isFlagged).constants);
}

}  // namespace lamcraft::fuzz
