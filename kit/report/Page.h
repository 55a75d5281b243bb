// SPDX-License-Identifier: BSD-3-Clause
#ifndef LAMKIT_REPORT_PAGE_H
#define LAMKIT_REPORT_PAGE_H

#include <nlohmann/json.hpp>
#include <string>

namespace lamkit {

/// The page: style, data, chart library and script in one document that needs nothing else.
[[nodiscard]] std::string reportPage(const std::string& title,
                                     const nlohmann::ordered_json& materials);

/// A text as it stands in HTML; bytes that are not UTF-8 become the replacement character.
[[nodiscard]] std::string htmlOf(const std::string& text);

}  // namespace lamkit

#endif
