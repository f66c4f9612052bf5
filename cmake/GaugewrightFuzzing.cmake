# Fuzz targets. Each is one source that defines the two functions of fuzz/FuzzTarget.h.

# gaugewright_fuzzer(NAME SOURCES ... LINK ...)
#
# Always builds NAME_replay, which runs the target's own seeds and every file of
# tests/fuzz_regression/NAME through it, as an ordinary test. With GAUGEWRIGHT_FUZZERS (preset
# "fuzz") NAME itself is the libFuzzer program.
function(gaugewright_fuzzer name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  set(targets ${name}_replay)
  add_executable(${name}_replay ${ARG_SOURCES} "${GAUGEWRIGHT_SOURCE_DIR}/fuzz/ReplayMain.cpp")
  add_test(NAME fuzz_regression.${name}
    COMMAND ${name}_replay "${GAUGEWRIGHT_SOURCE_DIR}/tests/fuzz_regression/${name}")
  set_tests_properties(fuzz_regression.${name} PROPERTIES TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
  if(GAUGEWRIGHT_FUZZERS)
    add_executable(${name} ${ARG_SOURCES})
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    set_property(GLOBAL APPEND PROPERTY GAUGEWRIGHT_FUZZER_NAMES ${name})
    list(APPEND targets ${name})
    if(NOT TARGET fuzzers)
      add_custom_target(fuzzers) # what scripts/fuzz.sh builds
    endif()
    add_dependencies(fuzzers ${name} ${name}_replay)
  endif()
  foreach(target IN LISTS targets)
    target_compile_features(${target} PRIVATE cxx_std_20)
    target_include_directories(${target} PRIVATE "${GAUGEWRIGHT_SOURCE_DIR}")
    target_link_libraries(${target} PRIVATE gaugewright_test_support ${ARG_LINK}
      gaugewright_warnings)
  endforeach()
endfunction()
