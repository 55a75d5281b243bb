# SPDX-License-Identifier: BSD-3-Clause
# What Windows shows of an executable and lets it do: version resource and manifest.
#
#   lamcraft_windows_resources(<target> <description>)
enable_language(RC)
function(lamcraft_windows_resources target description)
  set(folder ${PROJECT_SOURCE_DIR}/packaging/windows)
  set(manifest ${folder}/program.manifest)
  set(LAMCRAFT_FILE ${target}.exe)
  set(LAMCRAFT_DESCRIPTION ${description})
  string(REPLACE "." "," LAMCRAFT_NUMBERS ${PROJECT_VERSION})
  set(LAMCRAFT_MANIFEST "1 24 \"${manifest}\"")
  if(MSVC)  # its linker takes the manifest itself
    set(LAMCRAFT_MANIFEST "")
    target_sources(${target} PRIVATE ${manifest})
  endif()
  configure_file(${folder}/program.rc ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc @ONLY)
  target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
endfunction()
