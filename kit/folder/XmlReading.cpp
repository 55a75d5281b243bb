// SPDX-License-Identifier: BSD-3-Clause
#include "folder/XmlReading.h"

#include <charconv>
#include <cstddef>
#include <string_view>
#include <system_error>

namespace lamkit::xml {

namespace {

std::string tagOf(const TiXmlElement& element) {
  return "<" + element.ValueStr() + ">";
}

std::string_view view(const TiXmlElement& element, const char* const attribute) {
  const std::string* const found = element.Attribute(std::string(attribute));
  if (found == nullptr) {
    throw Fault(element.Row(), tagOf(element) + " has no \"" + attribute + "\"");
  }
  return *found;
}

/// Numbers are aligned to the right: blanks may come before them.
template <typename Number>
Number parse(const TiXmlElement& element, const char* const attribute) {
  const std::string_view all = view(element, attribute);
  const std::size_t start = all.find_first_not_of(' ');
  Number value{};
  if (start != std::string_view::npos) {
    const char* const end = all.data() + all.size();
    const auto [rest, error] = std::from_chars(all.data() + start, end, value);
    if (error == std::errc() && rest == end) {
      return value;
    }
  }
  throw Fault(element.Row(),
              std::string("\"") + attribute + "\" of " + tagOf(element) + " is no number: \"" +
                  std::string(all) + "\"");
}

/// Range and distributions of a property that has scatter.
void readScatter(const TiXmlElement& element, lamcraft::VariableProperty& property) {
  lamcraft::VariationTable table{};
  table[0] = {number(element, "min"), number(element, "max")};
  const auto kinds = property.distributions();
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    const TiXmlElement& distribution = child(element, kinds[i]->name());
    for (std::size_t j = 0; j < kinds[i]->parameterCount(); ++j) {
      table[i + 1][j] = number(distribution, kinds[i]->parameterName(j));
    }
  }
  property.fill(table);
}

}  // namespace

const TiXmlElement& child(const TiXmlElement& parent, const char* const tag) {
  const TiXmlElement* const found = parent.FirstChildElement(tag);
  if (found == nullptr) {
    throw Fault(parent.Row(), tagOf(parent) + " has no <" + tag + ">");
  }
  return *found;
}

std::string text(const TiXmlElement& element, const char* const attribute) {
  return std::string(view(element, attribute));
}

std::string optionalText(const TiXmlElement& element, const char* const attribute) {
  const char* const found = element.Attribute(attribute);
  return found == nullptr ? std::string() : std::string(found);
}

double number(const TiXmlElement& element, const char* const attribute) {
  return parse<double>(element, attribute);
}

std::int32_t integer(const TiXmlElement& element, const char* const attribute) {
  return parse<std::int32_t>(element, attribute);
}

double childNumber(const TiXmlElement& parent, const char* const tag) {
  return number(child(parent, tag), "value");
}

std::int32_t childInteger(const TiXmlElement& parent, const char* const tag) {
  return integer(child(parent, tag), "value");
}

lamcraft::VariableProperty childProperty(const TiXmlElement& parent, const char* const tag) {
  const TiXmlElement& element = child(parent, tag);
  lamcraft::VariableProperty property;
  property.setValue(number(element, "value"));
  if (element.Attribute("min") != nullptr) {
    readScatter(element, property);
  }
  return property;
}

bool isShallow(const std::string& content, const int limit) {
  int depth = 0;
  std::size_t at = content.find('<');
  while (at != std::string::npos) {
    const std::size_t end = content.find_first_of("<>", at + 1);
    if (end == std::string::npos) {
      break;
    }
    const char first = content[at + 1];
    if (content[end] == '>' && first != '?' && first != '!') {
      if (first == '/') {
        --depth;
      } else if (content[end - 1] != '/') {
        ++depth;
      }
    }
    if (depth > limit) {
      return false;
    }
    at = content[end] == '<' ? end : content.find('<', end);
  }
  return true;
}

}  // namespace lamkit::xml
