// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "card/CardFormats.h"
#include "card/CardText.h"
#include "elastic/Properties.h"
#include "elastic/Voigt.h"

namespace lamkit {

namespace {

using lamcraft::Property;
using lamcraft::UniStrength;

constexpr int kShellMaterial = 1;
constexpr int kSolidMaterial = 2;
constexpr int kFirstTable = 101;

/// A field of an entry: nothing, an integer, or a number that may depend on temperature.
struct Field {
  std::string text;            ///< what stands in the material entry
  std::vector<double> values;  ///< one a temperature; empty where there is no number
};

using Entry = std::vector<Field>;

std::string padded(std::string text, const std::size_t width) {
  text.resize(width, ' ');
  return text;
}

/// Wide fields, four a line of 16 characters each; what goes on is marked by "*". The first field
/// is never empty.
std::string entryText(const std::string& name, std::vector<std::string> fields) {
  constexpr std::size_t kFieldsInLine = 4;
  constexpr std::size_t kNameWidth = 8;
  constexpr std::size_t kFieldWidth = 16;
  while (fields.back().empty()) {
    fields.pop_back();
  }
  std::string text;
  for (std::size_t first = 0; first < fields.size(); first += kFieldsInLine) {
    text += padded(first == 0 ? name + "*" : "*", kNameWidth);
    for (std::size_t i = first; i < first + kFieldsInLine; ++i) {
      text += padded(i < fields.size() ? fields[i] : "", kFieldWidth);
    }
    const bool goesOn = first + kFieldsInLine < fields.size();
    text = goesOn ? text + "*" : text.substr(0, text.find_last_not_of(' ') + 1);
    text += "\n";
  }
  return text;
}

/// Nine digits: 16 characters with a sign and an exponent of three digits.
std::string wideNumber(const double value) {
  constexpr int kDigitsAfterPoint = 8;
  return cardNumber(value, kDigitsAfterPoint);
}

Field blank() {
  return {};
}

Field integer(const int value) {
  return {std::to_string(value), {}};
}

template <typename ValueOf>
Field number(const CardMaterial& card, const ValueOf& valueOf) {
  Field field;
  for (const CardEnvironment& environment : card.temperatures) {
    field.values.push_back(valueOf(environment));
  }
  field.text = wideNumber(field.values.front());
  return field;
}

Field constant(const double value) {
  return {wideNumber(value), {}};
}

Field densityOf(const CardMaterial& card) {
  return card.density > 0.0 ? constant(card.density) : blank();
}

kx::Matrix6 stiffnessOf(const CardEnvironment& environment) {
  return kx::stiffness(kx::propertiesFrom(environment.properties.data()));
}

/// Shells: the constants in the plane, and the strengths of a ply.
Entry mat8(const CardMaterial& card) {
  const auto property = [&card](const Property which) {
    return number(card, [which](const CardEnvironment& at) { return at[which]; });
  };
  const auto strength = [&card](const UniStrength which) {
    const bool isGiven = !card.isWoven() && card.temperatures.front()[which] > 0.0;
    return isGiven ? number(card, [which](const CardEnvironment& at) { return at[which]; })
                   : blank();
  };
  return {integer(kShellMaterial),
          property(Property::e11),
          property(Property::e22),
          property(Property::v12),
          property(Property::g12),
          property(Property::g13),
          property(Property::g23),
          densityOf(card),
          property(Property::a11),
          property(Property::a22),
          constant(card.referenceTemperature),
          strength(UniStrength::t1),
          strength(UniStrength::c1),
          strength(UniStrength::t2),
          strength(UniStrength::c2),
          strength(UniStrength::s12)};
}

/// Solids: the upper triangle of the stiffness in the order xx, yy, zz, xy, yz, zx.
Entry mat9(const CardMaterial& card) {
  constexpr std::array<kx::Voigt, 6> kOrder{kx::k11, kx::k22, kx::k33, kx::k12, kx::k23, kx::k13};
  Entry entry{integer(kSolidMaterial)};
  for (std::size_t row = 0; row < kOrder.size(); ++row) {
    for (std::size_t column = row; column < kOrder.size(); ++column) {
      entry.push_back(number(card, [&](const CardEnvironment& environment) {
        return stiffnessOf(environment)(kOrder[row], kOrder[column]);
      }));
    }
  }
  entry.push_back(densityOf(card));
  for (const Property expansion : {Property::a11, Property::a22, Property::a33}) {
    entry.push_back(number(
        card, [expansion](const CardEnvironment& environment) { return environment[expansion]; }));
  }
  entry.insert(entry.end(), {constant(0.0), constant(0.0), constant(0.0)});
  entry.push_back(constant(card.referenceTemperature));
  return entry;
}

bool isVariable(const Field& field) {
  return std::any_of(field.values.begin(), field.values.end(), [&field](const double value) {
    return wideNumber(value) != field.text;
  });
}

std::string tableText(const CardMaterial& card,
                      const int table,
                      const std::vector<double>& values) {
  std::vector<std::string> fields{std::to_string(table), "", "", "", "", "", "", ""};
  for (std::size_t i = 0; i < values.size(); ++i) {
    fields.push_back(wideNumber(card.temperatures[i].temperature));
    fields.push_back(wideNumber(values[i]));
  }
  fields.emplace_back("ENDT");
  return entryText("TABLEM1", fields);
}

/// The entry, and where it depends on temperature the entry that names a table for each field.
std::string materialText(const CardMaterial& card,
                         const std::pair<const char*, const char*> names,
                         const Entry& entry,
                         int& nextTable) {
  std::vector<std::string> texts;
  std::vector<std::string> references;
  std::string tables;
  for (const Field& field : entry) {
    texts.push_back(field.text);
    references.emplace_back(texts.size() == 1 ? field.text : "");
    if (isVariable(field)) {
      references.back() = std::to_string(nextTable);
      tables += tableText(card, nextTable++, field.values);
    }
  }
  std::string text = entryText(names.first, texts);
  if (!tables.empty()) {
    text += entryText(names.second, references) + tables;
  }
  return text;
}

}  // namespace

std::string nastranCard(const CardMaterial& card) {
  std::string text = headOf(card, "$", "Material for Nastran; not run with this solver");
  text += commentOf("$", "MAT8: material 1, for shells. MAT9: material 2, for solids.");
  int nextTable = kFirstTable;
  text += materialText(card, {"MAT8", "MATT8"}, mat8(card), nextTable);
  text += materialText(card, {"MAT9", "MATT9"}, mat9(card), nextTable);
  return text;
}

}  // namespace lamkit
