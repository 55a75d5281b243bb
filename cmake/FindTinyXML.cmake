# SPDX-License-Identifier: BSD-3-Clause
# TinyXML as the target TinyXML::TinyXML; nothing to do where the target is there already, as in a
# build that brings TinyXML's sources along.
if(TARGET TinyXML::TinyXML)
  set(TinyXML_FOUND TRUE)
  return()
endif()

find_path(TinyXML_INCLUDE_DIR tinyxml.h)
find_library(TinyXML_LIBRARY tinyxml)
mark_as_advanced(TinyXML_INCLUDE_DIR TinyXML_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(TinyXML REQUIRED_VARS TinyXML_LIBRARY TinyXML_INCLUDE_DIR)

if(TinyXML_FOUND)
  add_library(TinyXML::TinyXML UNKNOWN IMPORTED)
  # Debian's package builds with the STL interface, and so must whoever includes the header.
  set_target_properties(TinyXML::TinyXML PROPERTIES
    IMPORTED_LOCATION ${TinyXML_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${TinyXML_INCLUDE_DIR}
    INTERFACE_COMPILE_DEFINITIONS TIXML_USE_STL)
endif()
