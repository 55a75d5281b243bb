# SPDX-License-Identifier: BSD-3-Clause
# TinyXML::TinyXML, built from Debian's source package.
include(WindowsSources)
set(source ${LAMCRAFT_WINDOWS_SOURCES}/tinyxml)
lamcraft_require_source(${source}/tinyxml.cpp)

if(NOT TARGET TinyXML::TinyXML)
  add_library(tinyxml STATIC ${source}/tinyxml.cpp ${source}/tinystr.cpp
                             ${source}/tinyxmlerror.cpp ${source}/tinyxmlparser.cpp)
  target_compile_definitions(tinyxml PUBLIC TIXML_USE_STL)
  target_include_directories(tinyxml SYSTEM PUBLIC ${source})
  target_compile_options(tinyxml PRIVATE -w)
  add_library(TinyXML::TinyXML ALIAS tinyxml)
endif()
set(TinyXML_FOUND TRUE)
