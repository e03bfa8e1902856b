# Texts that are compiled in: the file ${embedded_texts}. A literal may be no longer than some compilers take, so
# that a text is put together of several.
function(as_literals variable file)
  file(READ ${file} text)
  string(LENGTH "${text}" left)
  set(start 0)
  set(literals "")
  while(left GREATER 0)
    string(SUBSTRING "${text}" ${start} 8000 piece)
    string(APPEND literals "\n    R\"~text~(${piece})~text~\"")
    math(EXPR start "${start} + 8000")
    math(EXPR left "${left} - 8000")
  endwhile()
  set(${variable} "${literals}" PARENT_SCOPE)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
endfunction()

as_literals(profile_schema ${CMAKE_SOURCE_DIR}/docs/machine-profile.schema.json)
set(embedded_texts ${CMAKE_CURRENT_BINARY_DIR}/embedded_texts.cpp)
configure_file(${CMAKE_CURRENT_LIST_DIR}/embedded_texts.cpp.in ${embedded_texts} @ONLY)
set_source_files_properties(${embedded_texts} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON) # clang-tidy passes it over
