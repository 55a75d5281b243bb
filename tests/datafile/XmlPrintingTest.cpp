#include "datafile/XmlPrinting.h"

#include <cstdio>
#include <string>

#include <gtest/gtest.h>

#include "datafile/XmlElements.h"
#include "datafile/XmlExpectation.h"

namespace lamcraft::xml {
namespace {

template <typename Print>
std::string printedBy(const Print& print) {
  const std::string path = temporaryPath();
  std::FILE* const file = std::fopen(path.c_str(), "w");
  print(file);
  std::fclose(file);
  std::string content = contentOf(path);
  std::remove(path.c_str());
  return content;
}

void print(const TiXmlDocument& document, std::FILE* const file) {
  Printer printer(file);
  for (const TiXmlNode* node = document.FirstChild(); node != nullptr; node = node->NextSibling()) {
    if (const TiXmlElement* const element = node->ToElement()) {
      printer.put(*element, 0);
    }
    if (const TiXmlDeclaration* const declaration = node->ToDeclaration()) {
      printer.put(*declaration);
    }
  }
  printer.finish();
}

/// TinyXML's own text and ours.
testing::AssertionResult printsAlike(const TiXmlDocument& document) {
  const std::string theirs = printedBy([&](std::FILE* const file) { document.Print(file, 0); });
  const std::string ours = printedBy([&](std::FILE* const file) { print(document, file); });
  if (theirs.empty() || theirs != ours) {
    return testing::AssertionFailure() << "TinyXML:\n" << theirs << "\nours:\n" << ours;
  }
  return testing::AssertionSuccess();
}

TEST(XmlPrinting, LaysElementsOutAsTinyXmlDoes) {
  TiXmlDocument document;
  document.LinkEndChild(new TiXmlDeclaration("1.0", "utf-8", "yes"));
  TiXmlElement& root = appendElement(document, "root");
  root.SetAttribute("a", "1");
  root.SetAttribute("b", 2);
  TiXmlElement& branch = appendElement(root, "branch");
  appendNumber(branch, "leaf", -1.5);
  setNumber(appendElement(appendElement(branch, "twig"), "leaf"), "x", 1e-200);
  appendElement(root, "empty");
  EXPECT_TRUE(printsAlike(document));
}

TEST(XmlPrinting, PrintsADocumentWithoutChildren) {
  TiXmlDocument document;
  document.LinkEndChild(new TiXmlDeclaration("1.0", "utf-8", "yes"));
  appendElement(document, "root");
  EXPECT_TRUE(printsAlike(document));
}

TEST(XmlPrinting, LaysAnElementOutThatIsPutInPieces) {
  TiXmlElement root("root");
  root.SetAttribute("a", "1");
  appendNumber(root, "number", 1.0);
  const std::string whole = printedBy([&](std::FILE* const file) {
    Printer printer(file);
    printer.put(root, 0);
    printer.finish();
  });
  const std::string pieces = printedBy([&](std::FILE* const file) {
    Printer printer(file);
    printer.open(root, 0);
    printer.put(*root.FirstChildElement(), 1);
    printer.close(root, 0);
    printer.finish();
  });
  EXPECT_EQ(pieces, whole);
}

TEST(XmlPrinting, EscapesEveryByteAsTinyXmlDoes) {
  TiXmlDocument document;
  TiXmlElement& root = appendElement(document, "root");
  for (int byte = 1; byte < 256; ++byte) {
    TiXmlElement& element = appendElement(root, "byte");
    const std::string text = std::string("x") + static_cast<char>(byte) + "y";
    element.SetAttribute("value", text.c_str());
  }
  for (const char* const text : {"", "\"", "'", "\"'", "&#x41;", "&#x41", "a&#x", "&amp;", "<>"}) {
    appendElement(root, "text").SetAttribute("value", text);
  }
  EXPECT_TRUE(printsAlike(document));
}

TEST(XmlPrinting, PrintsMoreThanItBuffers) {
  TiXmlDocument document;
  TiXmlElement& root = appendElement(document, "root");
  for (int i = 0; i < 10'000; ++i) {
    appendNumber(root, "number", i);
  }
  EXPECT_TRUE(printsAlike(document));
}

/// Notes how much text waits to go into the file when its turn comes.
class Witness : public TiXmlDeclaration {
 public:
  explicit Witness(std::size_t& waiting) : waiting_(waiting) {}
  using TiXmlDeclaration::Print;
  void Print(std::FILE*, int, std::string* const text) const override { waiting_ = text->size(); }

 private:
  std::size_t& waiting_;
};

TEST(XmlPrinting, HoldsAPartOfTheTextOnly) {
  TiXmlDocument document;
  TiXmlElement& root = appendElement(document, "root");
  for (int i = 0; i < 100'000; ++i) {
    appendNumber(root, "number", i);
  }
  std::size_t waiting = 0;
  document.LinkEndChild(new Witness(waiting));
  const std::string text = printedBy([&](std::FILE* const file) { print(document, file); });
  EXPECT_GT(waiting, 0U);
  EXPECT_LT(waiting, text.size() / 10);
}

}  // namespace
}  // namespace lamcraft::xml
