#include "datafile/XmlPrinting.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace lamcraft::xml {
namespace {

constexpr std::size_t kIndent = 4;
constexpr std::size_t kBufferSize = std::size_t{1} << 16;

/// Whether TinyXML writes a text as it stands, whatever it does to others.
bool isPlain(const std::string& text) noexcept {
  return std::all_of(text.begin(), text.end(), [](const char c) {
    return c == ' ' || c == '.' || c == '+' || c == '-' || (c >= '0' && c <= '9') ||
           (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
  });
}

class Printer {
 public:
  explicit Printer(std::FILE* const file) : file_(file) { buffer_.reserve(2 * kBufferSize); }
  Printer(const Printer&) = delete;
  Printer& operator=(const Printer&) = delete;
  ~Printer() = default;

  void put(const TiXmlDeclaration& declaration) {
    declaration.Print(nullptr, 0, &buffer_);
    buffer_ += '\n';
  }

  /// Hands all that was put on to the system.
  void finish() {
    flush();
    std::fflush(file_);
  }

  /// Puts an element with everything in it.
  void put(const TiXmlElement& element, const std::size_t depth) {
    if (buffer_.size() > kBufferSize) {
      flush();
    }
    indent(depth);
    buffer_ += '<';
    buffer_ += element.ValueStr();
    for (const TiXmlAttribute* a = element.FirstAttribute(); a != nullptr; a = a->Next()) {
      buffer_ += ' ';
      put(*a);
    }
    const TiXmlElement* child = element.FirstChildElement();
    if (child == nullptr) {
      buffer_ += " />\n";
      return;
    }
    buffer_ += ">\n";
    for (; child != nullptr; child = child->NextSiblingElement()) {
      put(*child, depth + 1);
    }
    indent(depth);
    buffer_ += "</";
    buffer_ += element.ValueStr();
    buffer_ += ">\n";
  }

 private:
  void put(const TiXmlAttribute& attribute) {
    if (!isPlain(attribute.ValueStr())) {
      attribute.Print(nullptr, 0, &buffer_);
      return;
    }
    buffer_ += attribute.NameTStr();
    buffer_ += "=\"";
    buffer_ += attribute.ValueStr();
    buffer_ += '"';
  }

  void indent(const std::size_t depth) { buffer_.append(kIndent * depth, ' '); }

  void flush() {
    std::fwrite(buffer_.data(), 1, buffer_.size(), file_);
    buffer_.clear();
  }

  std::FILE* file_;
  std::string buffer_;
};

}  // namespace

void print(const TiXmlDocument& document, std::FILE* const file) {
  Printer printer(file);
  for (const TiXmlNode* node = document.FirstChild(); node != nullptr; node = node->NextSibling()) {
    if (const TiXmlElement* const element = node->ToElement()) {
      printer.put(*element, 0);
    } else if (const TiXmlDeclaration* const declaration = node->ToDeclaration()) {
      printer.put(*declaration);
    }
  }
  printer.finish();
}

}  // namespace lamcraft::xml
