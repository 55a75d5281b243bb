// SPDX-License-Identifier: BSD-3-Clause
#include "record/RunRecord.h"

#include <filesystem>
#include <fstream>

#include "findings/JsonFindings.h"

namespace lamkit {

namespace {

constexpr int kSchema = 1;

RunRecord recordFrom(const nlohmann::json& document, const std::string& folder) {
  RunRecord record;
  record.deck = document.at("deck");
  record.sha256 = document.at("sha256");
  record.versions.lamcraft = document.at("versions").at("lamcraft");
  record.versions.lamkit = document.at("versions").at("lamkit");
  if (!document.at("exit_code").is_null()) {
    record.exitCode = document.at("exit_code").get<int>();
  }
  record.seconds = document.at("seconds");
  record.result = {folder, findingsFrom(document.at("findings"))};
  for (Finding& finding : record.result.findings) {
    finding.file = folder;
  }
  return record;
}

}  // namespace

std::string textOf(const RunRecord& record) {
  nlohmann::ordered_json document{
      {"schema", kSchema},
      {"deck", record.deck},
      {"sha256", record.sha256},
      {"versions", {{"lamcraft", record.versions.lamcraft}, {"lamkit", record.versions.lamkit}}},
      {"exit_code", nullptr},
      {"seconds", record.seconds},
      {"verdict", verdictOf(record.result.findings)},
      {"findings", jsonOf(record.result.findings)}};
  if (record.exitCode) {
    document["exit_code"] = *record.exitCode;
  }
  return textOf(document);
}

std::optional<RunRecord> readRunRecord(const std::string& folder) {
  std::ifstream file(std::filesystem::path(folder) / kRunRecord, std::ios::binary);
  try {
    const auto document = nlohmann::json::parse(file);
    if (document.at("schema") == kSchema) {
      return recordFrom(document, folder);
    }
  } catch (const nlohmann::json::exception&) {
    // No record, half of one, or of another program.
  }
  return std::nullopt;
}

}  // namespace lamkit
