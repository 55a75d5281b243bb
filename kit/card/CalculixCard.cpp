// SPDX-License-Identifier: BSD-3-Clause
#include "card/CardFormats.h"
#include "card/CardText.h"
#include "card/InpText.h"

namespace lamkit {

std::string calculixCard(const CardMaterial& card) {
  return headOf(card, "**", "Material for CalculiX") + inp::materialOf(card);
}

}  // namespace lamkit
