# SPDX-License-Identifier: BSD-3-Clause
# The warnings that the whole tree builds without. Microsoft's compiler gets its own equivalent.
add_library(lamcraft_warnings INTERFACE)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(lamcraft_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
  if(LAMCRAFT_WERROR)
    target_compile_options(lamcraft_warnings INTERFACE -Werror)
  endif()
elseif(MSVC)
  target_compile_options(lamcraft_warnings INTERFACE /W4 /utf-8)
endif()
