# A DLL has no symbols: they are in a file next to it, which debuggers of GNU find by its name and check sum. A record in
# the DLL (RSDS) with a hash of its content distinguishes the crash dumps of two builds. Visual C++'s linker does both.
function(separate_symbols target)
  if(NOT MINGW)
    return()
  endif()
  set(dll $<TARGET_FILE:${target}>)
  set(without_time ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0)
  target_link_options(${target} PRIVATE -Wl,--build-id=sha1)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${without_time} ${CMAKE_OBJCOPY} --only-keep-debug ${dll} ${dll}.debug
    COMMAND ${without_time} ${CMAKE_STRIP} --strip-all ${dll}
    COMMAND ${without_time} ${CMAKE_OBJCOPY} --add-gnu-debuglink=${dll}.debug ${dll}
    VERBATIM)
endfunction()
