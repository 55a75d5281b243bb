// SPDX-License-Identifier: BSD-3-Clause
#include "check/StartRules.h"

#include <array>
#include <cmath>
#include <string>

#include "check/MaterialRules.h"
#include "check/Sets.h"
#include "check/Wording.h"
#include "lamina/UnidirectionalLamina.h"
#include "model/Constituent.h"
#include "model/UnitFactors.h"
#include "weave/model/WeaveModel.h"

namespace lamkit {

using lamcraft::Property;

namespace {

struct Prediction {
  double e11;
  double e22;
  double g12;
  double v12;
};

Prediction uniPrediction(const lamcraft::Composite& composite, const StartValues& start) {
  const double fraction = composite.get(lamcraft::constituents::kFiber).volumeFraction.value();
  const kx::TransverselyIsotropic ply =
      kx::homogeniseElastic(start.fiber, start.matrix, fraction).effective;
  return {ply.e11, ply.e22, ply.g12, ply.v12};
}

/// From the compliance of the unit cell.
Prediction weavePrediction(const lamcraft::Composite& composite, const StartValues& start) {
  namespace names = lamcraft::constituents;
  kx::WeaveDescription weave;
  weave.harness = composite.harness();
  weave.fillFraction = composite.get(names::kFill).volumeFraction.value();
  weave.warpFraction = composite.get(names::kWarp).volumeFraction.value();
  weave.fiberFraction = composite.get(names::kFillFiber).volumeFraction.value();
  kx::WeaveModel model(kx::ThreadPool::defaultThreads());
  const kx::CellResponse response =
      model.response(weave, kx::WeaveConstituents::uniform(start.fiber, start.matrix));
  model.team().endWorkers();
  const kx::Matrix6& s = response.compliance;
  return {1.0 / s(0, 0), 1.0 / s(1, 1), 1.0 / s(3, 3), -s(0, 1) / s(0, 0)};
}

}  // namespace

void checkStart(const Reading& reading, const EnvironmentKeywords& environment, Report& report) {
  constexpr double kFar = 0.30;
  // What v12 may be off by. A test is good for 0.05; of a plain weave v12 goes from 0.04 to 0.21
  // with the crimp, which no deck tells.
  constexpr double kRatioScatter = 0.05;
  constexpr double kWovenRatioScatter = 0.10;
  constexpr double kPercent = 100.0;
  const lamcraft::Composite& composite = reading.composite();
  const SetViews views = setViews(reading, environment);
  const StartValues start = startValues(views);
  const Families families = familiesOf(systemName(reading));
  if (!kx::isAdmissible(start.fiber) || !kx::isAdmissible(start.matrix)) {
    return;
  }
  const Prediction ply =
      composite.isWoven() ? weavePrediction(composite, start) : uniPrediction(composite, start);
  struct Row {
    Property property;
    double predicted;
    double measured;
  };
  const kx::Properties& target = views.lamina.base;
  const std::array<Row, 4> rows{{{Property::e11, ply.e11, target.e11},
                                 {Property::e22, ply.e22, target.e22},
                                 {Property::g12, ply.g12, target.g12},
                                 {Property::v12, ply.v12, target.v12}}};
  for (const Row& row : rows) {
    const double deviation = row.predicted / row.measured - 1.0;
    const bool isSmall = row.property == Property::v12 &&
                         std::abs(row.predicted - row.measured) <
                             (composite.isWoven() ? kWovenRatioScatter : kRatioScatter);
    // What is unusual by itself is said by itself.
    if (isSmall || !isUsual(views.lamina, row.property, families) || row.measured <= 0.0 ||
        !std::isfinite(deviation) || std::abs(deviation) <= kFar) {
      continue;
    }
    const lamcraft::PropertyRow& names = lamcraft::kPropertyRows[indexOf(row.property)];
    const double factor = factorOf(names.dimension, lamcraft::unitFactors(composite.unitSystem));
    const std::string unit = unitOf(names.dimension, composite.unitSystem);
    report.add("start-far",
               Severity::warning,
               views.lamina.spotOf(row.property),
               std::string("starts predict ") + names.label + " " +
                   shown(std::round(std::abs(deviation) * kPercent)) + " % " +
                   (deviation < 0.0 ? "below" : "above") +
                   " the test: check fiber, matrix, fiber volume fraction and LAMINA",
               {shown(row.predicted / factor, unit), shown(row.measured / factor, unit)});
  }
}

}  // namespace lamkit
