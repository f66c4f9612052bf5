# What every target of this repository shares: language level, warnings, Qt's strict macros.

# Warnings and strictness of our own code. Linked PRIVATE by our targets only, so that nothing of it
# reaches a project that uses this one as a subproject.
add_library(gaugewright_warnings INTERFACE)
if(MSVC)
  target_compile_options(gaugewright_warnings INTERFACE /W4 /permissive- /utf-8)
else()
  target_compile_options(gaugewright_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
endif()
if(GAUGEWRIGHT_WERROR)
  target_compile_options(gaugewright_warnings INTERFACE $<IF:$<CXX_COMPILER_ID:MSVC>,/WX,-Werror>)
endif()
target_compile_definitions(gaugewright_warnings INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS QT_USE_QSTRINGBUILDER)

include(GaugewrightPrecompiled)

# gaugewright_library(NAME SOURCES ... LINK ...): one subsystem as a static library whose headers
# are included from the repository root.
function(gaugewright_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_include_directories(${name} PUBLIC "${GAUGEWRIGHT_SOURCE_DIR}")
  target_link_libraries(${name} PUBLIC ${ARG_LINK} PRIVATE gaugewright_warnings)
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  gaugewright_use_precompiled(${name} gaugewright_core_headers)
endfunction()
