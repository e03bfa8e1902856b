# Compares what a shared library exports with the list it is built from:
#
#   cmake -D LIBRARY=libVeskSondrel64.so -D EXPORTS=VeskSondrel64.def -D NM=nm -P check_exports.cmake
file(STRINGS ${EXPORTS} listed REGEX "^ +[A-Za-z0-9_]+$")
list(TRANSFORM listed STRIP)
list(LENGTH listed listed_count)
list(REMOVE_DUPLICATES listed)
list(LENGTH listed unique_count)
if(listed_count EQUAL 0 OR NOT listed_count EQUAL unique_count)
  message(FATAL_ERROR "${EXPORTS} is empty or names an export twice")
endif()

execute_process(COMMAND ${NM} --dynamic --defined-only --format=posix ${LIBRARY}
  OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" symbols "${symbols}")
set(exported "")
foreach(symbol IN LISTS symbols)
  string(REGEX MATCH "^([^ ]+) ([A-Za-z])" matched "${symbol}")
  if(NOT CMAKE_MATCH_2 STREQUAL "T")
    message(FATAL_ERROR "${LIBRARY} exports something that is no function: ${symbol}")
  endif()
  list(APPEND exported ${CMAKE_MATCH_1})
endforeach()

list(SORT listed)
list(SORT exported)
if(NOT listed STREQUAL exported)
  set(missing ${listed})
  list(REMOVE_ITEM missing ${exported})
  set(unlisted ${exported})
  list(REMOVE_ITEM unlisted ${listed})
  message(FATAL_ERROR "not exported: ${missing}\nexported without being listed: ${unlisted}")
endif()
