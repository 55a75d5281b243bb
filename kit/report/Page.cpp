// SPDX-License-Identifier: BSD-3-Clause
#include "report/Page.h"

#include "report/EmbeddedFiles.h"

namespace lamkit {

namespace {

using Json = nlohmann::ordered_json;

void replaceAll(std::string& text, const std::string& what, const std::string& with) {
  for (std::size_t place = text.find(what); place != std::string::npos;
       place = text.find(what, place + with.size())) {
    text.replace(place, what.size(), with);
  }
}

/// The document without line breaks, safe inside a script element: no text can end it.
std::string scriptData(const Json& document) {
  std::string text = document.dump(-1, ' ', true, Json::error_handler_t::replace);
  replaceAll(text, "<", "\\u003c");
  return text;
}

std::string scriptOf(const char* const file) {
  return "<script>\n" + std::string(embeddedFile(file)) + "</script>\n";
}

}  // namespace

std::string htmlOf(const std::string& text) {
  // A JSON text has the replacement characters, and no quotes that are not escaped.
  const std::string dumped = Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
  std::string html = Json::parse(dumped).get<std::string>();
  replaceAll(html, "&", "&amp;");
  replaceAll(html, "<", "&lt;");
  replaceAll(html, ">", "&gt;");
  replaceAll(html, "\"", "&quot;");
  return html;
}

std::string reportPage(const std::string& title, const nlohmann::ordered_json& materials) {
  const Json data = {{"title", title}, {"lamkit", LAMKIT_VERSION}, {"materials", materials}};
  return "<!doctype html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
         "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
         "<meta name=\"color-scheme\" content=\"light dark\">\n"
         "<link rel=\"icon\" href=\"data:,\">\n<title>" +
         htmlOf(title) + "</title>\n<style>\n" + std::string(embeddedFile("report.css")) +
         "</style>\n</head>\n<body>\n<main id=\"report\"><noscript>This report draws its charts "
         "with JavaScript, which is switched off.</noscript></main>\n"
         "<script type=\"application/json\" id=\"data\">" +
         scriptData(data) + "</script>\n<script type=\"text/plain\" id=\"licences\">\n" +
         std::string(embeddedFile("charts.LICENSES")) + "</script>\n" + scriptOf("charts.js") +
         scriptOf("report.js") + "</body>\n</html>\n";
}

}  // namespace lamkit
