# Benchmark programs (Google Benchmark). Build them in release; they are no tests.

find_package(benchmark REQUIRED)

# gaugewright_bench(NAME SOURCES ... LINK ...)
function(gaugewright_bench name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_compile_features(${name} PRIVATE cxx_std_20)
  target_include_directories(${name} PRIVATE "${GAUGEWRIGHT_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE gaugewright_test_support ${ARG_LINK} benchmark::benchmark
    gaugewright_warnings)
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
endfunction()
