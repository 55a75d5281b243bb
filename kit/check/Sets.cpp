// SPDX-License-Identifier: BSD-3-Clause
#include "check/Sets.h"

#include <algorithm>

#include "check/Forms.h"
#include "fit/MatrixSymmetry.h"
#include "model/UnitFactors.h"

namespace lamkit {

using lamcraft::Property;
using lamcraft::PropertySet;

namespace {

kx::Properties baseValues(const PropertySet& set, const lamcraft::UnitFactors& factors) {
  std::array<double, lamcraft::kPropertyCount> values{};
  const bool isBase = set.kind == PropertySet::Kind::systemDefaults;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const double factor = isBase ? 1.0 : factorOf(lamcraft::kPropertyRows[i].dimension, factors);
    values[i] = set.working()[i] * factor;
  }
  return kx::propertiesFrom(values.data());
}

}  // namespace

Spot SetView::spotOf(const Property property) const {
  if (keyword == nullptr) {
    return {title, {}, environment};
  }
  const auto given = givenProperties(set->symmetry);
  const auto place = std::find(given.begin(), given.end(), property);
  if (place == given.end()) {
    return lamkit::spotOf(*keyword, environment);
  }
  return valueSpot(*keyword, 0, static_cast<std::size_t>(place - given.begin()), environment);
}

bool isUsual(const SetView& view, const Property property, const Families& families) {
  const kx::Properties& base = view.base;
  const double value = base.*kx::kPropertyOrder<double>[indexOf(property)];
  return propertyRange(view.kind, families, lamcraft::kPropertyRows[indexOf(property)].label)
      .holds(value);
}

SetViews setViews(const Reading& reading, const EnvironmentKeywords& environment) {
  const lamcraft::Composite& composite = reading.composite();
  const lamcraft::EnvironmentRecord& record = composite.environments[environment.number - 1];
  const lamcraft::UnitFactors factors = lamcraft::unitFactors(composite.unitSystem);
  const auto view = [&](const char* const title, const SetKind kind, const PropertySet& set) {
    return SetView{
        title, kind, environment.last(title), &set, baseValues(set, factors), environment.number};
  };
  return {view("LAMINA", composite.isWoven() ? SetKind::weave : SetKind::ply, record.lamina),
          view("FIBER", SetKind::fiber, record.fiber),
          view("MATRIX", SetKind::matrix, record.matrix)};
}

StartValues startValues(const SetViews& views) {
  const bool isIsotropic = views.matrix.set->symmetry == lamcraft::Symmetry::isotropic;
  return {kx::transverselyIsotropic(views.fiber.base),
          kx::matrixStart(views.matrix.base, isIsotropic).constants};
}

}  // namespace lamkit
