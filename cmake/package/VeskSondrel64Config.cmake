# find_package(VeskSondrel64) gives Vesk::Sondrel64, the library with its header. A kit for Linux also gives
# Vesk::SondrelMachine, with which a host's tests choose the machine that the library answers from.
get_filename_component(_vesk_kit "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)

if(NOT CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(VeskSondrel64_FOUND FALSE)
  set(VeskSondrel64_NOT_FOUND_MESSAGE "VeskSondrel64 is a 64-bit library, and this build is not.")
  return()
endif()

if(EXISTS "${_vesk_kit}/bin/VeskSondrel64.dll")
  set(_vesk_library "${_vesk_kit}/bin/VeskSondrel64.dll")
  # Compilers that look for .lib files get theirs from the .def file; all others take the MinGW one too.
  set(_vesk_import "${_vesk_kit}/lib/VeskSondrel64.lib")
  if(NOT EXISTS "${_vesk_import}" AND NOT MSVC)
    set(_vesk_import "${_vesk_kit}/lib/libVeskSondrel64.dll.a")
  endif()
  if(NOT EXISTS "${_vesk_import}")
    set(VeskSondrel64_FOUND FALSE)
    set(VeskSondrel64_NOT_FOUND_MESSAGE "This compiler needs its own import library. Make it once, in \
${_vesk_kit}/lib: lib /def:VeskSondrel64.def /machine:x64 /out:VeskSondrel64.lib")
    return()
  endif()
else()
  set(_vesk_library "${_vesk_kit}/lib/libVeskSondrel64.so")
endif()

if(NOT TARGET Vesk::Sondrel64)
  add_library(Vesk::Sondrel64 SHARED IMPORTED)
  set_target_properties(Vesk::Sondrel64 PROPERTIES
    IMPORTED_LOCATION "${_vesk_library}"
    INTERFACE_INCLUDE_DIRECTORIES "${_vesk_kit}/include")
  if(DEFINED _vesk_import)
    set_target_properties(Vesk::Sondrel64 PROPERTIES IMPORTED_IMPLIB "${_vesk_import}")
  else()
    # Neither library has a version in its name: what is linked against is what is loaded.
    add_library(Vesk::SondrelMachine SHARED IMPORTED)
    set_target_properties(Vesk::SondrelMachine PROPERTIES
      IMPORTED_LOCATION "${_vesk_kit}/lib/libVeskMachine.so"
      INTERFACE_INCLUDE_DIRECTORIES "${_vesk_kit}/include")
    set_target_properties(Vesk::Sondrel64 PROPERTIES IMPORTED_LINK_DEPENDENT_LIBRARIES Vesk::SondrelMachine)
  endif()
endif()

unset(_vesk_kit)
unset(_vesk_library)
unset(_vesk_import)
