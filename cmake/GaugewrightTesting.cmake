# Test targets: GoogleTest suites, one executable a subsystem, every test a ctest entry of its own.

find_package(GTest REQUIRED)
if(GAUGEWRIGHT_PROPERTY_TESTS)
  find_package(rapidcheck REQUIRED)
endif()
find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
include(GoogleTest)

# gaugewright_test(NAME SOURCES ... PROPERTIES ... LINK ...): PROPERTIES are the sources whose tests
# draw random input.
function(gaugewright_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;PROPERTIES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE gaugewright_test_support ${ARG_LINK} GTest::gmock
    GTest::gtest gaugewright_warnings)
  if(GAUGEWRIGHT_PROPERTY_TESTS AND ARG_PROPERTIES)
    target_sources(${name} PRIVATE ${ARG_PROPERTIES})
    target_link_libraries(${name} PRIVATE rapidcheck)
  endif()
  set_target_properties(${name} PROPERTIES AUTOMOC ON CXX_EXTENSIONS OFF)
  gaugewright_manifest(${name})
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
    PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
