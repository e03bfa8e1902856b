# machines/*.json, compiled in: the file ${built_in_machines}. The default machine comes first, the others in the
# order of their names.
file(GLOB machine_files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/machines/*.json)
set(default_machine ${CMAKE_SOURCE_DIR}/machines/default.json)
list(REMOVE_ITEM machine_files ${default_machine})
list(PREPEND machine_files ${default_machine})
set(built_in_machines ${CMAKE_CURRENT_BINARY_DIR}/built_in_machines.cpp)
set(machine_rows "")
foreach(machine_file IN LISTS machine_files)
  get_filename_component(machine_name ${machine_file} NAME_WE)
  file(READ ${machine_file} machine_text)
  string(APPEND machine_rows "    {\"${machine_name}\", R\"~machine~(${machine_text})~machine~\"},\n")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${machine_file})
endforeach()
configure_file(${CMAKE_CURRENT_LIST_DIR}/built_in_machines.cpp.in ${built_in_machines} @ONLY)
set_source_files_properties(${built_in_machines} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON) # clang-tidy passes it over
