# Test targets: GoogleTest suites, one executable a subsystem. Every test is a ctest entry of its own
# unless GAUGEWRIGHT_WHOLE_SUITES makes each executable one.

find_package(GTest REQUIRED)
if(GAUGEWRIGHT_PROPERTY_TESTS)
  find_package(rapidcheck REQUIRED)
endif()
find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
include(GoogleTest)

# Not Qt6::Test, whose macros name the folder of each target.
gaugewright_precompile(gaugewright_test_headers
  LINK Qt6::Widgets GTest::gmock GTest::gtest
  HEADERS ${GAUGEWRIGHT_COMMON_HEADERS} QComboBox QDialogButtonBox QImage QInputDialog QLabel
    QLineEdit QProcess QPushButton QSpinBox QTemporaryDir QTimer QUndoStack gmock/gmock.h
    gtest/gtest.h)

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
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  gaugewright_use_precompiled(${name} gaugewright_test_headers)
  gaugewright_manifest(${name})
  if(GAUGEWRIGHT_WHOLE_SUITES)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 1500 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
  else()
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
      PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
  endif()
endfunction()
