// SPDX-License-Identifier: BSD-3-Clause
#include "model/SymmetryRule.h"

namespace lamcraft {
namespace {

constexpr PropertySource given(const Property property) noexcept {
  return {PropertySource::Kind::given, property};
}
constexpr PropertySource copied(const Property from) noexcept {
  return {PropertySource::Kind::copied, from};
}
constexpr PropertySource modulus(const Property property) noexcept {
  return {PropertySource::Kind::modulus, property};
}

using P = Property;

// clang-format off
constexpr SymmetryRule kIsotropic{
    {{given(P::e11),   copied(P::e11),  copied(P::e11),
      given(P::v12),   copied(P::v12),  copied(P::v12),
      modulus(P::g12), modulus(P::g13), modulus(P::g23),
      given(P::a11),   copied(P::a11),  copied(P::a11)}},
    P::e11, P::v12};

constexpr SymmetryRule kTransverse12{
    {{given(P::e11),   copied(P::e11),  given(P::e33),
      given(P::v12),   given(P::v13),   copied(P::v13),
      modulus(P::g12), given(P::g13),   copied(P::g13),
      given(P::a11),   copied(P::a11),  given(P::a33)}},
    P::e11, P::v12};

constexpr SymmetryRule kTransverse23{
    {{given(P::e11),   given(P::e22),   copied(P::e22),
      given(P::v12),   copied(P::v12),  given(P::v23),
      given(P::g12),   copied(P::g12),  modulus(P::g23),
      given(P::a11),   given(P::a22),   copied(P::a22)}},
    P::e22, P::v23};

constexpr SymmetryRule kOrthotropic{
    {{given(P::e11),   given(P::e22),   given(P::e33),
      given(P::v12),   given(P::v13),   given(P::v23),
      given(P::g12),   given(P::g13),   given(P::g23),
      given(P::a11),   given(P::a22),   given(P::a33)}},
    P::e11, P::v12};
// clang-format on

}  // namespace

const SymmetryRule& symmetryRule(const Symmetry symmetry) noexcept {
  switch (symmetry) {
    case Symmetry::isotropic:
      return kIsotropic;
    case Symmetry::transverse12:
      return kTransverse12;
    case Symmetry::transverse23:
      return kTransverse23;
    default:
      return kOrthotropic;
  }
}

}  // namespace lamcraft
