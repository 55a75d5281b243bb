// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_FOLDER_XMLREADING_H
#define LAMKIT_FOLDER_XMLREADING_H

#include <cstdint>
#include <stdexcept>
#include <string>

#include <tinyxml.h>

#include "variation/VariableProperty.h"

/// The elements that all blocks of a data file are made of. What is asked for must be there.
namespace lamkit::xml {

/// What is wrong with a data file, and in which line; without its path.
class Fault : public std::runtime_error {
 public:
  Fault(int line, const std::string& reason) : std::runtime_error(reason), line_(line) {}
  /// Counted from 1; 0 where no line is to blame.
  [[nodiscard]] int line() const noexcept { return line_; }

 private:
  int line_;
};

/// The first child with this tag. Throws Fault.
[[nodiscard]] const TiXmlElement& child(const TiXmlElement& parent, const char* tag);

/// The text of an attribute. Throws Fault.
[[nodiscard]] std::string text(const TiXmlElement& element, const char* attribute);
/// The same; empty where there is none.
[[nodiscard]] std::string optionalText(const TiXmlElement& element, const char* attribute);

/// The number in an attribute, infinities and NaN included; the locale has no influence. Throws
/// Fault for anything else.
[[nodiscard]] double number(const TiXmlElement& element, const char* attribute);
[[nodiscard]] std::int32_t integer(const TiXmlElement& element, const char* attribute);

/// The number in the child <tag value="..."/>. Throws Fault.
[[nodiscard]] double childNumber(const TiXmlElement& parent, const char* tag);
[[nodiscard]] std::int32_t childInteger(const TiXmlElement& parent, const char* tag);

/// The property in the child of this tag, with its range and distributions if it has some. Throws
/// Fault.
[[nodiscard]] lamcraft::VariableProperty childProperty(const TiXmlElement& parent, const char* tag);

/// Whether no element of a file stands more than `limit` elements deep, as far as its angle
/// brackets tell: what is deeper is no data file, and would overrun the parser's stack.
[[nodiscard]] bool isShallow(const std::string& content, int limit);

/// Calls visit(child) for every child element with this tag, in order.
template <typename Visit>
void forEach(const TiXmlElement& parent, const char* const tag, const Visit& visit) {
  for (const TiXmlElement* element = parent.FirstChildElement(tag); element != nullptr;
       element = element->NextSiblingElement(tag)) {
    visit(*element);
  }
}

}  // namespace lamkit::xml

#endif
