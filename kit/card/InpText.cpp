// SPDX-License-Identifier: BSD-3-Clause
#include "card/InpText.h"

#include "card/CardText.h"

namespace lamkit::inp {

namespace {

using lamcraft::Property;

std::string elasticity(const CardMaterial& card) {
  std::string text = "*ELASTIC, TYPE=ENGINEERING CONSTANTS\n";
  for (const CardEnvironment& environment : card.temperatures) {
    text += cardNumbers({environment[Property::e11],
                         environment[Property::e22],
                         environment[Property::e33],
                         environment[Property::v12],
                         environment[Property::v13],
                         environment[Property::v23],
                         environment[Property::g12],
                         environment[Property::g13]}) +
            ",\n" + cardNumbers({environment[Property::g23], environment.temperature}) + "\n";
  }
  return text;
}

std::vector<double> expansions(const CardEnvironment& environment) {
  return {environment[Property::a11], environment[Property::a22], environment[Property::a33]};
}

}  // namespace

std::string tableOf(const std::string& keyword,
                    const CardMaterial& card,
                    const NumbersOf numbersOf) {
  std::string text = keyword + "\n";
  for (const CardEnvironment& environment : card.temperatures) {
    std::vector<double> numbers = numbersOf(environment);
    numbers.push_back(environment.temperature);
    text += cardNumbers(numbers) + "\n";
  }
  return text;
}

std::string materialOf(const CardMaterial& card) {
  const std::string zero = cardNumber(card.referenceTemperature);
  std::string text = "*MATERIAL, NAME=" + card.name + "\n" + elasticity(card) +
                     tableOf("*EXPANSION, TYPE=ORTHO, ZERO=" + zero, card, expansions);
  if (card.density > 0.0) {
    text += "*DENSITY\n";
    for (const CardEnvironment& environment : card.temperatures) {
      text += cardNumbers({card.density, environment.temperature}) + "\n";
    }
  } else {
    text += "** No density: the deck gives none.\n";
  }
  return text;
}

}  // namespace lamkit::inp
