# SPDX-License-Identifier: BSD-3-Clause
# The tests of one room: an executable of its sources, its cases found by GoogleTest.
#
#   lamcraft_test(<name> [FAKE] SOURCES <files> LINKS <targets>)
#
# FAKE runs them with the stand-in micromechanics library instead of the engine.
include(GoogleTest)
function(lamcraft_test name)
  cmake_parse_arguments(ARG "FAKE" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name}_test ${ARG_SOURCES})
  target_link_libraries(${name}_test PRIVATE ${ARG_LINKS} GTest::gmock_main lamcraft_warnings)
  target_compile_definitions(${name}_test PRIVATE
    LAMCRAFT_TEST_DATA="${PROJECT_SOURCE_DIR}/tests")
  set(environment "")
  if(ARG_FAKE)
    add_dependencies(${name}_test kxdriver_fake)
    if(WIN32)
      set_target_properties(${name}_test PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY $<TARGET_FILE_DIR:kxdriver_fake>)
    else()
      target_link_options(${name}_test PRIVATE LINKER:--enable-new-dtags)
      set(environment "LD_LIBRARY_PATH=$<TARGET_FILE_DIR:kxdriver_fake>")
    endif()
  endif()
  if(WIN32)
    # All cases in one process: starting one under Wine takes longer than most of them.
    add_test(NAME ${name} COMMAND ${name}_test)
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
  else()
    set(seconds 300)
    if(LAMCRAFT_SANITIZE)
      set(seconds 1800)  # a weave's fit takes minutes there, and longer beside other work
    endif()
    gtest_discover_tests(${name}_test TEST_PREFIX ${name}. DISCOVERY_TIMEOUT 60
                         PROPERTIES TIMEOUT ${seconds} ENVIRONMENT "${environment}")
  endif()
endfunction()
