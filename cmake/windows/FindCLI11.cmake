# SPDX-License-Identifier: BSD-3-Clause
# CLI11::CLI11: the headers of this machine.
include(WindowsSources)
if(NOT TARGET CLI11::CLI11)
  lamcraft_shown_headers(CLI headers)
  add_library(CLI11::CLI11 INTERFACE IMPORTED GLOBAL)
  target_include_directories(CLI11::CLI11 INTERFACE ${headers})
endif()
set(CLI11_FOUND TRUE)
