# Headers that nearly every file reads, precompiled once a build: they are more than half of what a
# file takes to compile. A file includes what it uses all the same; the preset "tidy" does without.

option(GAUGEWRIGHT_PRECOMPILED_HEADERS "Precompile Qt's and the standard library's headers" OFF)

# gaugewright_precompile(NAME LINK ... HEADERS ...): a set of headers that targets can use. LINK must
# define no macro that differs from one target to the next.
function(gaugewright_precompile name)
  cmake_parse_arguments(ARG "" "" "LINK;HEADERS" ${ARGN})
  if(GAUGEWRIGHT_PRECOMPILED_HEADERS)
    set(source "${CMAKE_BINARY_DIR}/${name}.cpp")
    file(CONFIGURE OUTPUT "${source}" CONTENT "")
    add_library(${name} OBJECT "${source}")
    target_compile_features(${name} PRIVATE cxx_std_20)
    target_link_libraries(${name} PRIVATE ${ARG_LINK} gaugewright_warnings)
    list(TRANSFORM ARG_HEADERS REPLACE "(.+)" "<\\1>")
    target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
  endif()
endfunction()

# gaugewright_use_precompiled(TARGET NAME): lets a target read a set of headers precompiled.
function(gaugewright_use_precompiled target name)
  if(GAUGEWRIGHT_PRECOMPILED_HEADERS)
    target_precompile_headers(${target} REUSE_FROM ${name})
  endif()
endfunction()

set(GAUGEWRIGHT_COMMON_HEADERS
  algorithm array cmath filesystem functional map memory optional string utility vector
  QByteArray QCoreApplication QDateTime QDir QFile QFileInfo QHash QSet QString QStringList)
gaugewright_precompile(gaugewright_core_headers
  LINK Qt6::Core HEADERS ${GAUGEWRIGHT_COMMON_HEADERS})
