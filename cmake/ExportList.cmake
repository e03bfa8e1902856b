# What the library exports, by its .def file: the names, for the build files, and every_export.h's rows, for what asks
# all of them.
set(VESK_EXPORTS ${CMAKE_SOURCE_DIR}/src/frame/VeskSondrel64.def)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${VESK_EXPORTS})
file(STRINGS ${VESK_EXPORTS} VESK_EXPORT_NAMES REGEX "^ +[A-Za-z0-9_]+$")
list(TRANSFORM VESK_EXPORT_NAMES STRIP)

list(TRANSFORM VESK_EXPORT_NAMES REPLACE "(.+)" "EXPORT(\\1)" OUTPUT_VARIABLE export_rows)
list(JOIN export_rows "\n" export_rows)
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/exports/exports.inc CONTENT "@export_rows@\n" @ONLY)
add_library(every_export INTERFACE)
target_include_directories(every_export INTERFACE ${CMAKE_SOURCE_DIR}/tests ${CMAKE_BINARY_DIR}/exports)
