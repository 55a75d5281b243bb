# SPDX-License-Identifier: BSD-3-Clause
# One room of the house: a static library of the sources in this folder.
#
#   lamcraft_module(<name> ROOT <include root> FOLDER <folder below it>
#                   SOURCES <files> [APART <files>] [HEADERS_ONLY]
#                   [DEPENDS <modules>] [LINKS <other targets>])
#
# A file may include headers of its own room and of the rooms named in DEPENDS, nothing else of
# ours: the include check of every room runs as a part of the build, and so does the check that
# SOURCES names every .cpp in the folder. APART names those that are not of the library: a program's
# main file, sources of other platforms.
function(lamcraft_module name)
  cmake_parse_arguments(ARG "HEADERS_ONLY" "ROOT;FOLDER" "SOURCES;APART;DEPENDS;LINKS" ${ARGN})
  set(target lamcraft_${name})
  if(ARG_HEADERS_ONLY)
    add_library(${target} INTERFACE)
    set(scope INTERFACE)
  else()
    add_library(${target} STATIC ${ARG_SOURCES})
    set(scope PUBLIC)
    target_link_libraries(${target} PRIVATE lamcraft_warnings)
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  endif()
  target_include_directories(${target} ${scope} ${ARG_ROOT})
  set(allowed ${ARG_FOLDER})
  foreach(module IN LISTS ARG_DEPENDS)
    target_link_libraries(${target} ${scope} lamcraft_${module})
    get_property(folder GLOBAL PROPERTY lamcraft_folder_${module})
    list(APPEND allowed ${folder})
  endforeach()
  target_link_libraries(${target} ${scope} ${ARG_LINKS})
  set_property(GLOBAL PROPERTY lamcraft_folder_${name} ${ARG_FOLDER})

  file(GLOB files CONFIGURE_DEPENDS ${ARG_ROOT}/${ARG_FOLDER}/*.h ${ARG_ROOT}/${ARG_FOLDER}/*.cpp)
  set(stamp ${CMAKE_CURRENT_BINARY_DIR}/${name}.includes)
  add_custom_command(OUTPUT ${stamp}
    COMMAND ${CMAKE_COMMAND} -DROOM=${ARG_FOLDER} "-DROOT=${ARG_ROOT}" "-DALLOWED=${allowed}"
            "-DSOURCES=${ARG_SOURCES};${ARG_APART}" -DSTAMP=${stamp}
            -P ${PROJECT_SOURCE_DIR}/cmake/CheckRoom.cmake
    DEPENDS ${files} ${PROJECT_SOURCE_DIR}/cmake/CheckRoom.cmake VERBATIM)
  add_custom_target(check_room_${name} ALL DEPENDS ${stamp})
  if(NOT ARG_HEADERS_ONLY)
    add_dependencies(${target} check_room_${name})
  endif()
endfunction()
