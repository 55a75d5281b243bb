# SPDX-License-Identifier: BSD-3-Clause
# What the cross build takes from this machine: sources that scripts/bootstrap --windows has unpacked
# and header-only packages.
include_guard(GLOBAL)

set(LAMCRAFT_WINDOWS_SOURCES ${PROJECT_SOURCE_DIR}/build/windows-sources CACHE PATH
    "Folder of the unpacked source packages")

function(lamcraft_require_source path)
  if(NOT EXISTS ${path})
    message(FATAL_ERROR "${path} is missing; scripts/bootstrap --windows brings it")
  endif()
endfunction()

# A folder that shows the one header folder `name` of this machine and nothing beside it: with all of
# /usr/include in sight the compiler would take glibc's headers for Windows' own.
function(lamcraft_shown_headers name result)
  find_path(LAMCRAFT_${name}_PARENT ${name} PATHS /usr/include
            NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
  mark_as_advanced(LAMCRAFT_${name}_PARENT)
  lamcraft_require_source(${LAMCRAFT_${name}_PARENT}/${name})
  set(folder ${CMAKE_BINARY_DIR}/headers/${name})
  file(MAKE_DIRECTORY ${folder})
  file(CREATE_LINK ${LAMCRAFT_${name}_PARENT}/${name} ${folder}/${name} SYMBOLIC)
  set(${result} ${folder} PARENT_SCOPE)
endfunction()
