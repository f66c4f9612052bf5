# Test targets: GoogleTest suites, one executable a subsystem, every test a ctest entry of its own.

find_package(GTest REQUIRED)
find_package(rapidcheck REQUIRED)
find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
include(GoogleTest)

# gaugewright_test(NAME SOURCES ... LINK ...)
function(gaugewright_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE gaugewright_test_support ${ARG_LINK} GTest::gmock
    GTest::gtest rapidcheck gaugewright_warnings)
  set_target_properties(${name} PROPERTIES AUTOMOC ON CXX_EXTENSIONS OFF)
  gaugewright_manifest(${name})
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
    PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
