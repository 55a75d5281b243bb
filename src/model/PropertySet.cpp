// SPDX-License-Identifier: BSD-3-Clause
#include "model/PropertySet.h"

#include "model/SymmetryRule.h"

namespace lamcraft {

PropertySet::PropertySet(const PropertySet& other)
    : symmetry(other.symmetry), working_(other.working_), variables_(other.variables_) {}

PropertySet& PropertySet::operator=(const PropertySet& other) {
  if (this != &other) {
    kind = Kind::deck;
    symmetry = other.symmetry;
    working_ = other.working_;
    variables_ = other.variables_;
  }
  return *this;
}

void PropertySet::read(const abqinp::Keyword& keyword, const Symmetry code) {
  kind = Kind::deck;
  symmetry = code;
  const SymmetryRule& rule = symmetryRule(code);
  std::size_t position = 0;
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    if (rule.sources[i].kind == PropertySource::Kind::given) {
      working_[i] = keyword.requiredValue(0, position);
      variables_[i].setValue(working_[i]);
      ++position;
    }
  }
  makeConsistent();
}

void PropertySet::load(const double* const twelve, const Symmetry code) {
  if (code != Symmetry::unset) {
    symmetry = code;
  }
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    working_[i] = twelve[i];
    variables_[i].setValue(twelve[i]);
  }
  makeConsistent();
}

void PropertySet::publish() {
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    variables_[i].publish(working_[i]);
  }
  makeConsistent();
}

void PropertySet::makeConsistent() {
  const SymmetryRule& rule = symmetryRule(symmetry);
  const double modulus = working(rule.young) / (2.0 * (working(rule.poisson) + 1.0));
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    const PropertySource& source = rule.sources[i];
    if (source.kind == PropertySource::Kind::copied) {
      working_[i] = variables_[indexOf(source.from)].value();
      variables_[i] = variables_[indexOf(source.from)];
    } else if (source.kind == PropertySource::Kind::modulus) {
      working_[i] = modulus;
      variables_[i].publish(modulus);
    }
  }
}

void PropertySet::scaleWorking(const UnitFactors& factors) noexcept {
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    working_[i] *= factorOf(kPropertyRows[i].dimension, factors);
  }
}

void PropertySet::scaleVariables(const UnitFactors& factors) noexcept {
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    variables_[i].scale(factorOf(kPropertyRows[i].dimension, factors));
  }
}

}  // namespace lamcraft
