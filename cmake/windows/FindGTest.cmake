# SPDX-License-Identifier: BSD-3-Clause
# GTest::gmock_main and its like, built from Debian's source package of GoogleTest.
include(WindowsSources)
set(source /usr/src/googletest)
lamcraft_require_source(${source}/CMakeLists.txt)

if(NOT TARGET GTest::gmock_main)
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  add_subdirectory(${source} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  foreach(library gtest gmock gmock_main)
    target_compile_options(${library} PRIVATE -w)
    get_target_property(headers ${library} INTERFACE_INCLUDE_DIRECTORIES)
    target_include_directories(${library} SYSTEM INTERFACE ${headers})
  endforeach()
endif()
set(GTest_FOUND TRUE)
