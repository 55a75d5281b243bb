// SPDX-License-Identifier: BSD-3-Clause
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

Severity severityNamed(const std::string& name) {
  for (const Severity severity : {Severity::warning, Severity::error}) {
    if (name == nameOf(severity)) {
      return severity;
    }
  }
  return Severity::note;
}

Finding findingFrom(const nlohmann::json& object) {
  Finding finding;
  object.at("file").get_to(finding.file);
  object.at("line").get_to(finding.line);
  object.at("column").get_to(finding.column);
  object.at("keyword").get_to(finding.keyword);
  object.at("environment").get_to(finding.environment);
  object.at("rule").get_to(finding.rule);
  finding.severity = severityNamed(object.at("severity"));
  object.at("value").get_to(finding.value);
  object.at("expected").get_to(finding.expected);
  object.at("message").get_to(finding.message);
  return finding;
}

}  // namespace

std::vector<Finding> findingsFrom(const nlohmann::json& array) {
  std::vector<Finding> findings;
  findings.reserve(array.size());
  for (const auto& object : array) {
    findings.push_back(findingFrom(object));
  }
  return findings;
}

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
