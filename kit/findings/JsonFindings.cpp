#include "findings/JsonFindings.h"

namespace lamkit {

namespace {

nlohmann::ordered_json jsonOf(const Finding& finding) {
  return {{"file", finding.file},
          {"line", finding.line},
          {"column", finding.column},
          {"keyword", finding.keyword},
          {"environment", finding.environment},
          {"rule", finding.rule},
          {"severity", nameOf(finding.severity)},
          {"value", finding.value},
          {"expected", finding.expected},
          {"message", finding.message}};
}

}  // namespace

nlohmann::ordered_json jsonOf(const std::vector<Finding>& findings) {
  auto array = nlohmann::ordered_json::array();
  for (const Finding& finding : findings) {
    array.push_back(jsonOf(finding));
  }
  return array;
}

nlohmann::ordered_json jsonOf(const std::vector<FileFindings>& files) {
  auto array = nlohmann::ordered_json::array();
  for (const FileFindings& file : files) {
    array.push_back({{"file", file.file},
                     {"verdict", verdictOf(file.findings)},
                     {"findings", jsonOf(file.findings)}});
  }
  return {{"schema", 1}, {"files", std::move(array)}};
}

std::string textOf(const nlohmann::ordered_json& document) {
  constexpr int kIndent = 2;
  return document.dump(kIndent, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

}  // namespace lamkit
