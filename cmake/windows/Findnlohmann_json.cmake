# SPDX-License-Identifier: BSD-3-Clause
# nlohmann_json::nlohmann_json: the headers of this machine.
include(WindowsSources)
if(NOT TARGET nlohmann_json::nlohmann_json)
  lamcraft_shown_headers(nlohmann headers)
  add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED GLOBAL)
  target_include_directories(nlohmann_json::nlohmann_json INTERFACE ${headers})
endif()
set(nlohmann_json_FOUND TRUE)
