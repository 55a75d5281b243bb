# SPDX-License-Identifier: BSD-3-Clause
# Boost::locale, built from Debian's source package with the backends of Windows and of the standard
# library; ICU and iconv are left out, code pages are Windows' own. The headers of Boost are those of
# this machine.
include(WindowsSources)
set(source ${LAMCRAFT_WINDOWS_SOURCES}/boost-locale)
lamcraft_require_source(${source}/shared/generator.cpp)

if(NOT TARGET Boost::locale)
  lamcraft_shown_headers(boost headers)
  set(files
    encoding/codepage
    shared/date_time shared/format shared/formatting shared/generator shared/ids
    shared/localization_backend shared/message shared/mo_lambda
    util/codecvt_converter util/default_locale util/info util/locale_data util/gregorian
    std/codecvt std/collate std/converter std/numeric std/std_backend
    win32/collate win32/converter win32/numeric win32/win_backend win32/lcid)
  list(TRANSFORM files PREPEND ${source}/)
  list(TRANSFORM files APPEND .cpp)
  add_library(boost_locale STATIC ${files})
  target_compile_definitions(boost_locale
    PUBLIC BOOST_ALL_NO_LIB=1 BOOST_LOCALE_HIDE_AUTO_PTR=1
    PRIVATE BOOST_LOCALE_NO_POSIX_BACKEND=1 BOOST_THREAD_NO_LIB=1)
  target_include_directories(boost_locale SYSTEM PUBLIC ${headers})
  target_compile_options(boost_locale PRIVATE -w)
  add_library(Boost::locale ALIAS boost_locale)
endif()
set(Boost_FOUND TRUE)
