// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_DATAFILE_XMLELEMENTS_H
#define LAMCRAFT_DATAFILE_XMLELEMENTS_H

#include <array>
#include <cstddef>
#include <cstdint>

#include <tinyxml.h>

#include "model/PropertySet.h"
#include "variation/VariableProperty.h"

/// The elements that all blocks of a data file are made of.
namespace lamcraft::xml {

/// Appends an empty element as the last child; the parent owns it.
TiXmlElement& appendElement(TiXmlNode& parent, const char* tag);

/// Sets an attribute to a number of the data files' format.
void setNumber(TiXmlElement& element, const char* attribute, double value);

/// Appends <tag value="..."/> with a number.
void appendNumber(TiXmlNode& parent, const char* tag, double value);

/// Appends <tag value="..."/> with an integer.
void appendInteger(TiXmlNode& parent, const char* tag, std::int32_t value);

/// Appends a property: the bare value, or, when it is varied, value, range and the five
/// distributions.
void appendProperty(TiXmlNode& parent, const char* tag, const VariableProperty& property);

/// Appends the properties of a group in the order of the file.
template <std::size_t Count>
void appendGroup(TiXmlNode& parent,
                 const std::array<GroupRow, Count>& rows,
                 const std::array<VariableProperty, Count>& group) {
  for (std::size_t place = 0; place < Count; ++place) {
    for (std::size_t i = 0; i < Count; ++i) {
      if (rows[i].filePlace == place) {
        appendProperty(parent, rows[i].tag, group[i]);
      }
    }
  }
}

/// Appends <props set="..."> with the twelve properties.
void appendPropertySet(TiXmlNode& parent, std::int32_t set, const PropertySet& properties);

/// The same for twelve bare numbers.
void appendPropertySet(TiXmlNode& parent,
                       std::int32_t set,
                       const std::array<double, kPropertyCount>& values);

}  // namespace lamcraft::xml

#endif
