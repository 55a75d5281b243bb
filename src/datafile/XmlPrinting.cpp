#include "datafile/XmlPrinting.h"

#include <algorithm>

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

}  // namespace

Printer::Printer(std::FILE* const file) : file_(file) {
  buffer_.reserve(2 * kBufferSize);
}

void Printer::put(const TiXmlDeclaration& declaration) {
  declaration.Print(nullptr, 0, &buffer_);
  buffer_ += '\n';
}

void Printer::put(const TiXmlElement& element, const std::size_t depth) {
  const TiXmlElement* child = element.FirstChildElement();
  if (child == nullptr) {
    start(element, depth);
    buffer_ += " />\n";
    return;
  }
  open(element, depth);
  for (; child != nullptr; child = child->NextSiblingElement()) {
    put(*child, depth + 1);
  }
  close(element, depth);
}

void Printer::open(const TiXmlElement& element, const std::size_t depth) {
  start(element, depth);
  buffer_ += ">\n";
}

void Printer::close(const TiXmlElement& element, const std::size_t depth) {
  indent(depth);
  buffer_ += "</";
  buffer_ += element.ValueStr();
  buffer_ += ">\n";
}

void Printer::finish() {
  flush();
  std::fflush(file_);
}

void Printer::put(const TiXmlAttribute& attribute) {
  if (!isPlain(attribute.ValueStr())) {
    attribute.Print(nullptr, 0, &buffer_);
    return;
  }
  buffer_ += attribute.NameTStr();
  buffer_ += "=\"";
  buffer_ += attribute.ValueStr();
  buffer_ += '"';
}

void Printer::start(const TiXmlElement& element, const std::size_t depth) {
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
}

void Printer::indent(const std::size_t depth) {
  buffer_.append(kIndent * depth, ' ');
}

void Printer::flush() {
  std::fwrite(buffer_.data(), 1, buffer_.size(), file_);
  buffer_.clear();
}

}  // namespace lamcraft::xml
