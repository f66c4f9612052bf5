# Stands in for the configuration package that vcpkg ships: one target whose include directory holds
# the folder minizip/.
find_library(stand_in_library minizip REQUIRED)
find_path(stand_in_include minizip/unzip.h REQUIRED)
add_library(unofficial::minizip::minizip UNKNOWN IMPORTED)
set_target_properties(unofficial::minizip::minizip PROPERTIES
  IMPORTED_LOCATION "${stand_in_library}"
  INTERFACE_INCLUDE_DIRECTORIES "${stand_in_include}")
