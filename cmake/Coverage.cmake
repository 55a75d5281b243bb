# SPDX-License-Identifier: BSD-3-Clause
# LAMCRAFT_COVERAGE: counters in every line, read by scripts/coverage. The engine has threads, hence
# counters that they can share.
if(LAMCRAFT_COVERAGE)
  add_compile_options(--coverage -fprofile-update=atomic)
  add_link_options(--coverage)
endif()
