// SPDX-License-Identifier: BSD-3-Clause
#include "datafile/XmlElements.h"

#include <cstddef>

#include "datafile/NumberText.h"

namespace lamcraft::xml {

TiXmlElement& appendElement(TiXmlNode& parent, const char* const tag) {
  return *parent.LinkEndChild(new TiXmlElement(tag))->ToElement();
}

void setNumber(TiXmlElement& element, const char* const attribute, const double value) {
  element.SetAttribute(attribute, formatted(value).data());
}

void appendNumber(TiXmlNode& parent, const char* const tag, const double value) {
  setNumber(appendElement(parent, tag), "value", value);
}

void appendInteger(TiXmlNode& parent, const char* const tag, const std::int32_t value) {
  appendElement(parent, tag).SetAttribute("value", value);
}

namespace {

void appendDistribution(TiXmlNode& parent, const Distribution& distribution) {
  TiXmlElement& element = appendElement(parent, distribution.name());
  for (std::size_t i = 0; i < distribution.parameterCount(); ++i) {
    setNumber(element, distribution.parameterName(i), distribution.parameter(i));
  }
}

}  // namespace

void appendProperty(TiXmlNode& parent, const char* const tag, const VariableProperty& property) {
  TiXmlElement& element = appendElement(parent, tag);
  setNumber(element, "value", property.value());
  if (!property.isVaried()) {
    return;
  }
  setNumber(element, "min", property.min());
  setNumber(element, "max", property.max());
  for (const Distribution* const distribution : property.distributions()) {
    appendDistribution(element, *distribution);
  }
}

namespace {

TiXmlElement& appendSet(TiXmlNode& parent, const std::int32_t set) {
  TiXmlElement& element = appendElement(parent, "props");
  element.SetAttribute("set", set);
  return element;
}

}  // namespace

void appendPropertySet(TiXmlNode& parent, const std::int32_t set, const PropertySet& properties) {
  TiXmlElement& element = appendSet(parent, set);
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    appendProperty(element, kPropertyRows[i].tag, properties.variables()[i]);
  }
}

void appendPropertySet(TiXmlNode& parent,
                       const std::int32_t set,
                       const std::array<double, kPropertyCount>& values) {
  TiXmlElement& element = appendSet(parent, set);
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    appendNumber(element, kPropertyRows[i].tag, values[i]);
  }
}

}  // namespace lamcraft::xml
