# SPDX-License-Identifier: BSD-3-Clause
# Fails when a file of ROOM includes a header of a room that is not in ALLOWED, or when the folder
# holds a .cpp that SOURCES does not name. Quoted includes are ours, angled ones are not looked at.

cmake_minimum_required(VERSION 3.22)
file(GLOB files ${ROOT}/${ROOM}/*.h ${ROOT}/${ROOM}/*.cpp)
foreach(file IN LISTS files)
  get_filename_component(name ${file} NAME)
  if(name MATCHES "\\.cpp$" AND NOT name IN_LIST SOURCES)
    message(FATAL_ERROR "${ROOM}/${name} is in the folder but not in its SOURCES")
  endif()
  file(STRINGS ${file} lines REGEX "^[ \t]*#[ \t]*include[ \t]+\"")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE ".*\"(.*)\".*" "\\1" header "${line}")
    get_filename_component(room "${header}" DIRECTORY)
    if(NOT room IN_LIST ALLOWED)
      message(FATAL_ERROR "${ROOM}/${name} includes \"${header}\"; ${ROOM} may include: ${ALLOWED}")
    endif()
  endforeach()
endforeach()
file(WRITE ${STAMP} "")
