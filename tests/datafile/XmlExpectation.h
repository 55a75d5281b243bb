// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMCRAFT_TESTS_DATAFILE_XMLEXPECTATION_H
#define LAMCRAFT_TESTS_DATAFILE_XMLEXPECTATION_H

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <initializer_list>
#include <sstream>
#include <string>

#include <gtest/gtest.h>
#include <tinyxml.h>

#include "model/Composite.h"

namespace lamcraft {

/// A file name of this test's own, in the folder for temporary files.
inline std::string temporaryPath() {
  const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
  std::string name = std::string(test->test_suite_name()) + '.' + test->name() + ".xml";
  for (char& c : name) {
    c = c == '/' ? '_' : c;
  }
  return testing::TempDir() + name;
}

inline std::string contentOf(const std::string& path) {
  std::ifstream file(path);
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

/// The data file that the writer makes of the composite, line ends as line feeds.
template <typename Writer>
std::string written(const Composite& composite, const bool fatigueMode = false) {
  const std::string path = temporaryPath();
  {
    Writer writer(path);
    writer.writeDocument(composite, fatigueMode);
  }
  std::string content = contentOf(path);
  std::remove(path.c_str());
  return content;
}

/// An attribute's text in an expectation: "#1500" stands for the number in the files' format.
inline std::string spelledOut(const std::string& attribute) {
  if (attribute.empty() || attribute.front() != '#') {
    return attribute;
  }
  char buffer[128];
  std::snprintf(buffer, sizeof buffer, "%21.14E", std::strtod(attribute.c_str() + 1, nullptr));
  return buffer;
}

inline std::string describe(const TiXmlElement& element, const bool spellOut) {
  std::ostringstream text;
  text << '<' << element.Value();
  for (const TiXmlAttribute* a = element.FirstAttribute(); a != nullptr; a = a->Next()) {
    text << ' ' << a->Name() << "='" << (spellOut ? spelledOut(a->Value()) : a->Value()) << '\'';
  }
  text << '>';
  return text.str();
}

/// Where two elements, attributes and children in their order, differ first; empty when nowhere.
inline std::string difference(const TiXmlElement& expected, const TiXmlElement& actual) {
  const std::string wanted = describe(expected, true);
  const std::string found = describe(actual, false);
  if (wanted != found) {
    return "expected " + wanted + ", found " + found;
  }
  const TiXmlElement* e = expected.FirstChildElement();
  const TiXmlElement* a = actual.FirstChildElement();
  for (; e != nullptr && a != nullptr; e = e->NextSiblingElement(), a = a->NextSiblingElement()) {
    const std::string below = difference(*e, *a);
    if (!below.empty()) {
      return std::string("in ").append(wanted).append(": ").append(below);
    }
  }
  if (e != nullptr) {
    return "in " + wanted + ": missing " + describe(*e, true);
  }
  return a == nullptr ? "" : "in " + wanted + ": surplus " + describe(*a, false);
}

/// Compares an element with hand-written XML.
inline testing::AssertionResult matches(const TiXmlElement* const actual,
                                        const std::string& expected) {
  if (actual == nullptr) {
    return testing::AssertionFailure() << "no such element";
  }
  TiXmlDocument document;
  document.Parse(expected.c_str());
  if (document.Error() || document.RootElement() == nullptr) {
    return testing::AssertionFailure() << "the expectation is no XML: " << document.ErrorDesc();
  }
  const std::string first = difference(*document.RootElement(), *actual);
  return first.empty() ? testing::AssertionSuccess() : testing::AssertionFailure() << first;
}

/// A data file read back.
class ReadBack {
 public:
  explicit ReadBack(const std::string& content) {
    document_.Parse(content.c_str());
    EXPECT_FALSE(document_.Error()) << document_.ErrorDesc();
  }

  [[nodiscard]] const TiXmlElement* root() const { return document_.RootElement(); }

  /// The element at the end of a path of tags below the root, each the first of its name; null
  /// when there is none.
  [[nodiscard]] const TiXmlElement* at(const std::initializer_list<const char*> path) const {
    const TiXmlElement* element = root();
    for (const char* const tag : path) {
      element = element == nullptr ? nullptr : element->FirstChildElement(tag);
    }
    return element;
  }

 private:
  TiXmlDocument document_;
};

/// The tags of an element's children, each followed by a blank.
inline std::string childTags(const TiXmlElement* const element) {
  std::string tags;
  if (element != nullptr) {
    for (const TiXmlElement* child = element->FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
      tags += std::string(child->Value()) + ' ';
    }
  }
  return tags;
}

}  // namespace lamcraft

#endif
