// SPDX-License-Identifier: BSD-3-Clause
#include "folder/ConstituentReading.h"

#include <array>
#include <cstddef>
#include <optional>

#include "datafile/Tags.h"
#include "folder/XmlReading.h"

namespace lamkit::xml {

namespace {

using lamcraft::xml::kDecompositionOrder;
using lamcraft::xml::kDecompositionTags;
using lamcraft::xml::kFatigueConstantTags;
using lamcraft::xml::kFatigueDirectionTags;

/// The names are those of a matrix row by row, or of its first row.
template <typename Store>
void readEntries(const TiXmlElement& parent,
                 const char* const tag,
                 const std::size_t count,
                 const Store& store) {
  const TiXmlElement* entry = child(parent, tag).FirstChildElement();
  for (std::size_t i = 0; i < count; ++i) {
    if (entry == nullptr || entry->ValueStr() != kDecompositionTags[i]) {
      throw Fault(entry == nullptr ? parent.Row() : entry->Row(),
                  std::string("<") + tag + "> has no <" + kDecompositionTags[i] + "> in its place");
    }
    store(i, number(*entry, "value"));
    entry = entry->NextSiblingElement();
  }
}

void readMatrix(const TiXmlElement& parent, const char* const tag, std::array<double, 36>& values) {
  readEntries(parent, tag, values.size(), [&values](const std::size_t i, const double value) {
    values[i / kDecompositionOrder + kDecompositionOrder * (i % kDecompositionOrder)] = value;
  });
}

void readVector(const TiXmlElement& parent, const char* const tag, std::array<double, 6>& values) {
  readEntries(parent, tag, values.size(), [&values](const std::size_t i, const double value) {
    values[i] = value;
  });
}

StateDecomposition readDecomposition(const TiXmlElement& element) {
  StateDecomposition result;
  result.state = integer(element, "set");
  readMatrix(element, "stress", result.slot.stress);
  readMatrix(element, "strain", result.slot.strain);
  readVector(element, "Tstress", result.slot.thermalStress);
  readVector(element, "Tstrain", result.slot.thermalStrain);
  return result;
}

ResultRow readDirection(const TiXmlElement& element) {
  ResultRow row{};
  for (std::size_t i = 0; i < row.size(); ++i) {
    const auto& [group, tag] = kFatigueConstantTags[i];
    row[i] = childNumber(group == nullptr ? element : child(element, group), tag);
  }
  return row;
}

std::optional<std::array<ResultRow, 2>> readFatigue(const TiXmlElement& constituent) {
  const TiXmlElement* const element = constituent.FirstChildElement("fatigue");
  if (element == nullptr) {
    return std::nullopt;
  }
  std::array<ResultRow, 2> rows{};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i] = readDirection(child(*element, kFatigueDirectionTags[i]));
  }
  return rows;
}

/// Number, type and name.
template <typename Data>
void readHead(const TiXmlElement& element, Data& data) {
  data.number = integer(element, "number");
  data.type = optionalText(element, "type");
  data.name = text(child(element, "name"), "value");
}

}  // namespace

std::vector<StateProperties> readStates(const TiXmlElement& element) {
  std::vector<StateProperties> states;
  forEach(element, "props", [&states](const TiXmlElement& set) {
    StateProperties& state = states.emplace_back();
    state.state = integer(set, "set");
    for (std::size_t i = 0; i < kPropertyCount; ++i) {
      state.properties[i] = childProperty(set, lamcraft::kPropertyRows[i].tag);
    }
  });
  return states;
}

ConstituentData readConstituent(const TiXmlElement& element) {
  ConstituentData data;
  readHead(element, data);
  data.count = childInteger(element, "ncons");
  data.volumeFraction = childProperty(element, "VF");
  if (element.FirstChildElement("degradation") != nullptr) {
    data.degradation = childNumber(element, "degradation");
  }
  forEach(element, "constituent", [&data](const TiXmlElement& constituent) {
    data.children.push_back(readConstituent(constituent));
  });
  return data;
}

FittedConstituent readFittedConstituent(const TiXmlElement& element) {
  FittedConstituent data;
  readHead(element, data);
  data.states = readStates(element);
  forEach(element, "decomp", [&data](const TiXmlElement& decomposition) {
    data.decompositions.push_back(readDecomposition(decomposition));
  });
  data.fatigue = readFatigue(element);
  forEach(element, "constituent", [&data](const TiXmlElement& constituent) {
    data.children.push_back(readFittedConstituent(constituent));
  });
  return data;
}

}  // namespace lamkit::xml
