// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_FINDINGS_JSONFINDINGS_H
#define LAMKIT_FINDINGS_JSONFINDINGS_H

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "findings/Finding.h"

namespace lamkit {

/// The findings as an array of objects whose keys are the names of Finding's members.
[[nodiscard]] nlohmann::ordered_json jsonOf(const std::vector<Finding>& findings);

/// The findings of such an array. Throws nlohmann::json::exception for anything else.
[[nodiscard]] std::vector<Finding> findingsFrom(const nlohmann::json& array);

/// {"schema": 1, "files": [{"file": ..., "verdict": ..., "findings": [...]}]}
[[nodiscard]] nlohmann::ordered_json jsonOf(const std::vector<FileFindings>& files);

/// The text of a JSON document, indented, with a line feed at its end. Bytes that are not UTF-8
/// become the replacement character.
[[nodiscard]] std::string textOf(const nlohmann::ordered_json& document);

}  // namespace lamkit

#endif
