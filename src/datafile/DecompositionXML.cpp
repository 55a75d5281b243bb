// SPDX-License-Identifier: BSD-3-Clause
#include "datafile/DecompositionXML.h"

#include <array>
#include <cstddef>

#include "datafile/Tags.h"
#include "datafile/XmlElements.h"

namespace lamcraft::xml {
namespace {

constexpr std::size_t kOrder = kDecompositionOrder;

using Matrix = std::array<double, kOrder * kOrder>;
using Vector = std::array<double, kOrder>;

void appendMatrix(TiXmlNode& parent, const char* const tag, const Matrix& byColumns) {
  TiXmlElement& element = appendElement(parent, tag);
  for (std::size_t row = 0; row < kOrder; ++row) {
    for (std::size_t column = 0; column < kOrder; ++column) {
      appendNumber(
          element, kDecompositionTags[kOrder * row + column], byColumns[row + kOrder * column]);
    }
  }
}

void appendVector(TiXmlNode& parent, const char* const tag, const Vector& values) {
  TiXmlElement& element = appendElement(parent, tag);
  for (std::size_t i = 0; i < kOrder; ++i) {
    appendNumber(element, kDecompositionTags[i], values[i]);
  }
}

}  // namespace

void appendDecomposition(TiXmlNode& parent, const std::int32_t set, const DecompositionSlot& slot) {
  TiXmlElement& element = appendElement(parent, "decomp");
  element.SetAttribute("set", set);
  appendMatrix(element, "stress", slot.stress);
  appendMatrix(element, "strain", slot.strain);
  appendVector(element, "Tstress", slot.thermalStress);
  appendVector(element, "Tstrain", slot.thermalStrain);
}

}  // namespace lamcraft::xml
