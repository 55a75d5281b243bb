#include "datafile/DecompositionXML.h"

#include <array>
#include <cstddef>

#include "datafile/XmlElements.h"

namespace lamcraft::xml {
namespace {

constexpr std::size_t kOrder = 6;

/// Row by row; the vectors use the names of the first row.
constexpr std::array<const char*, kOrder * kOrder> kEntryNames{
    "D11", "D12", "D13", "D14", "D15", "D16", "D21", "D22", "D23", "D24", "D25", "D26",
    "D31", "D32", "D33", "D34", "D35", "D36", "D41", "D42", "D43", "D44", "D45", "D46",
    "D51", "D52", "D53", "D54", "D55", "D56", "D61", "D62", "D63", "D64", "D65", "D66"};

using Matrix = std::array<double, kOrder * kOrder>;
using Vector = std::array<double, kOrder>;

void appendMatrix(TiXmlNode& parent, const char* const tag, const Matrix& byColumns) {
  TiXmlElement& element = appendElement(parent, tag);
  for (std::size_t row = 0; row < kOrder; ++row) {
    for (std::size_t column = 0; column < kOrder; ++column) {
      appendNumber(element, kEntryNames[kOrder * row + column], byColumns[row + kOrder * column]);
    }
  }
}

void appendVector(TiXmlNode& parent, const char* const tag, const Vector& values) {
  TiXmlElement& element = appendElement(parent, tag);
  for (std::size_t i = 0; i < kOrder; ++i) {
    appendNumber(element, kEntryNames[i], values[i]);
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
