# cpack: a ZIP for Windows; a Debian package and a .tar.gz elsewhere. What goes in is what the rooms
# install.
set(CPACK_PACKAGE_NAME lamcraft)
set(CPACK_PACKAGE_VENDOR "lamcraft developers")
set(CPACK_PACKAGE_CONTACT "lamcraft developers <developers@lamcraft.invalid>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_SOURCE_DIR}/build/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

if(WIN32)
  set(CPACK_GENERATOR ZIP)
  install(PROGRAMS ${PROJECT_SOURCE_DIR}/packaging/windows/register.cmd DESTINATION .)
else()
  set(CPACK_GENERATOR DEB TGZ)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SECTION science)
  # What the program and its library load is looked up in the packages that hold it.
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
endif()
include(CPack)
