# The tests of one room: an executable of its sources, its cases found by GoogleTest.
#
#   lamcraft_test(<name> SOURCES <files> LINKS <targets>)
include(GoogleTest)
function(lamcraft_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name}_test ${ARG_SOURCES})
  target_link_libraries(${name}_test PRIVATE ${ARG_LINKS} GTest::gmock_main lamcraft_warnings)
  target_compile_definitions(${name}_test PRIVATE
    LAMCRAFT_TEST_DATA="${PROJECT_SOURCE_DIR}/tests")
  gtest_discover_tests(${name}_test TEST_PREFIX ${name}. DISCOVERY_TIMEOUT 60
                       PROPERTIES TIMEOUT 300)
endfunction()
