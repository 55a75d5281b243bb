// SPDX-License-Identifier: BSD-3-Clause
#include <array>
#include <cstddef>

#include "card/CardFormats.h"
#include "card/CardText.h"

namespace lamkit {

namespace {

/// L along the fibres (fill), T across (warp), N through the thickness; in the order of
/// kPropertyRows.
constexpr std::array<const char*, lamcraft::kPropertyCount> kNames{"E_L",
                                                                   "E_T",
                                                                   "E_N",
                                                                   "NU_LT",
                                                                   "NU_LN",
                                                                   "NU_TN",
                                                                   "G_LT",
                                                                   "G_LN",
                                                                   "G_TN",
                                                                   "ALPHA_L",
                                                                   "ALPHA_T",
                                                                   "ALPHA_N"};

/// A function of temperature, constant beyond its first and last one. Names have eight characters
/// at most.
std::string functionOf(const CardMaterial& card, const std::size_t property) {
  std::string text = std::string("f") + kNames[property] + " = DEFI_FONCTION(\n";
  text += "    NOM_PARA='TEMP', PROL_GAUCHE='CONSTANT', PROL_DROITE='CONSTANT',\n    VALE=(\n";
  for (const CardEnvironment& environment : card.temperatures) {
    text += "        " + cardNumbers({environment.temperature, environment.properties[property]}) +
            ",\n";
  }
  return text + "    ),\n)\n";
}

std::string densityOf(const CardMaterial& card) {
  return card.density > 0.0 ? "        RHO=" + cardNumber(card.density) + ",\n" : "";
}

std::string constantMaterial(const CardMaterial& card) {
  std::string text = "MAT = DEFI_MATERIAU(\n    ELAS_ORTH=_F(\n";
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    text += std::string("        ") + kNames[i] + "=" +
            cardNumber(card.temperatures.front().properties[i]) + ",\n";
  }
  return text + densityOf(card) + "    ),\n)\n";
}

std::string variableMaterial(const CardMaterial& card) {
  std::string text;
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    text += functionOf(card, i);
  }
  text += "MAT = DEFI_MATERIAU(\n    ELAS_ORTH_FO=_F(\n";
  for (const char* const name : kNames) {
    text += std::string("        ") + name + "=f" + name + ",\n";
  }
  return text + "        TEMP_DEF_ALPHA=" + cardNumber(card.referenceTemperature) + ",\n" +
         densityOf(card) + "    ),\n)\n";
}

}  // namespace

std::string asterCard(const CardMaterial& card) {
  std::string head = headOf(card, "#", "Material for Code_Aster; not run with this solver");
  head += commentOf("#",
                    "Expansions are secant, from " + shortNumber(card.referenceTemperature) +
                        " K: give that as VALE_REF of the temperature.");
  return head + (card.temperatures.size() == 1 ? constantMaterial(card) : variableMaterial(card));
}

}  // namespace lamkit
