# The development kit: what `cmake --install` puts under a prefix and `cmake --build --target kit` packs into one archive.
# Nothing in it names the place it was built in or installed to, so that it can be unpacked anywhere.
#
#   bin/                                   the tool; on Windows also VeskSondrel64.dll
#   bin/VeskSondrelMessages.dll            on Windows: the texts of the library's events, for the event viewer
#   bin/observed/                          on Windows: the observed VeskSondrel64.dll
#   lib/                                   the import library and VeskSondrel64.def, or the shared libraries
#   lib/cmake/VeskSondrel64, lib/pkgconfig how CMake and (not for Visual C++) pkg-config find it
#   symbols/                               for Windows: the DLL's, for a debugger of GNU
#   include/                               the header, which is the manual, and the observer's; natively also the
#                                          simulated machine's
#   share/vesk-sondrel/                    machine profiles and examples; on Windows PowerShell's completion
#   share/bash-completion, share/zsh, share/man
#                                          natively, completion and manual page of the tool
#   share/doc/vesk-sondrel/                pages for engineers, licences of what is linked in
set(kit_data share/vesk-sondrel)
set(kit_documents share/doc/vesk-sondrel)

# On Windows there are two, for hosts of two compilers.
if(VESK_STRING_LAYOUT STREQUAL "msvc")
  set(kit_system windows-vc)
  set(kit_import_library VeskSondrel64.lib)
elseif(WIN32)
  set(kit_system windows-mingw)
  set(kit_import_library libVeskSondrel64.dll.a)
else()
  set(kit_system linux-${CMAKE_SYSTEM_PROCESSOR})
endif()

set(package_directory ${CMAKE_BINARY_DIR}/package)
if(VESK_FOR_VISUAL_CPP)
  # This preset builds the DLL alone. The tool reads either kind of string: it is that of the preset windows.
  cmake_path(GET CMAKE_BINARY_DIR PARENT_PATH builds)
  set(kit_tool ${builds}/windows/bin/sondrel.exe)
  install(CODE "if(NOT EXISTS \"${kit_tool}\")
    message(FATAL_ERROR \"${kit_tool} is missing: build the preset windows first\")
  endif()")
  install(TARGETS VeskSondrel64 RUNTIME DESTINATION bin)
  install(PROGRAMS ${kit_tool} DESTINATION bin)
  find_program(LLVM_DLLTOOL llvm-dlltool REQUIRED)
  set(import_library ${CMAKE_BINARY_DIR}/lib/${kit_import_library})
  add_custom_command(OUTPUT ${import_library}
    COMMAND ${LLVM_DLLTOOL} -m i386:x86-64 -d ${VESK_EXPORTS} -l ${import_library}
    DEPENDS ${VESK_EXPORTS} VERBATIM)
  add_custom_target(import_library ALL DEPENDS ${import_library})
  install(FILES ${import_library} DESTINATION lib)
else()
  set_target_properties(sondrel PROPERTIES INSTALL_RPATH "")
  install(TARGETS VeskSondrel64 sondrel RUNTIME DESTINATION bin LIBRARY DESTINATION lib ARCHIVE DESTINATION lib)
endif()

# The header says which string the library of its kit returns.
set(kit_header_directory ${package_directory}/include)
set(kit_header ${kit_header_directory}/vesk_sondrel.h)
file(READ include/vesk_sondrel.h header)
set(default_layout "#define VESK_STRING_LAYOUT VESK_STRING_LAYOUT_LIBSTDCXX\n")
string(FIND "${header}" "${default_layout}" place)
if(place EQUAL -1)
  message(FATAL_ERROR "include/vesk_sondrel.h has no line ${default_layout}")
endif()
if(VESK_STRING_LAYOUT STREQUAL "msvc")
  string(REPLACE "${default_layout}" "#define VESK_STRING_LAYOUT VESK_STRING_LAYOUT_MSVC\n" header "${header}")
endif()
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS include/vesk_sondrel.h)
file(CONFIGURE OUTPUT ${kit_header} CONTENT "${header}" @ONLY NEWLINE_STYLE UNIX)
install(FILES ${kit_header} include/vesk_sondrel_observer.h DESTINATION include)

if(WIN32)
  install(TARGETS VeskSondrel64Observed RUNTIME DESTINATION bin/observed)
  if(MINGW)
    install(FILES $<TARGET_FILE:VeskSondrel64>.debug DESTINATION symbols)
    install(FILES $<TARGET_FILE:VeskSondrelMessages> DESTINATION bin)
  endif()
  install(FILES ${VESK_EXPORTS} DESTINATION lib)
  install(PROGRAMS field/collect.cmd DESTINATION field)
  install(FILES tools/sondrel/generated/sondrel.ps1 DESTINATION ${kit_data})
else()
  install(TARGETS VeskMachine LIBRARY DESTINATION lib)
  install(FILES include/vesk_sondrel_machine.h DESTINATION include)
  install(FILES tools/sondrel/generated/sondrel.bash DESTINATION share/bash-completion/completions RENAME sondrel)
  install(FILES tools/sondrel/generated/sondrel.1 DESTINATION share/man/man1)
  install(FILES tools/sondrel/generated/_sondrel DESTINATION share/zsh/site-functions)
endif()

install(DIRECTORY machines/ DESTINATION ${kit_data}/machines FILES_MATCHING PATTERN *.json)
install(FILES docs/machine-profile.schema.json docs/readings.schema.json docs/doctor.schema.json packaging/prometheus/sondrel.rules.yml DESTINATION ${kit_data})
install(DIRECTORY examples/ DESTINATION ${kit_data}/examples PATTERN CMakeLists.txt EXCLUDE)
install(FILES docs/host-engineer.md docs/firmware-engineer.md docs/on-windows.md docs/tool.md docs/json.md docs/fleet.md DESTINATION ${kit_documents})

# What is compiled in has its licence there under the name of its target: without one there is no kit.
get_property(kit_licences GLOBAL PROPERTY VESK_HOSTED_HEADERS)
list(PREPEND kit_licences README)
if(MINGW)
  list(APPEND kit_licences gcc-runtime mingw-w64)
endif()
if(WIN32)
  list(APPEND kit_licences zlib)
endif()
foreach(licence IN LISTS kit_licences)
  if(NOT EXISTS ${CMAKE_SOURCE_DIR}/licences/${licence}.txt)
    message(FATAL_ERROR "licences/${licence}.txt is missing: the kit needs the licence of what is compiled in.")
  endif()
  install(FILES licences/${licence}.txt DESTINATION ${kit_documents}/licences)
endforeach()

include(CMakePackageConfigHelpers)
configure_file(cmake/package/VeskSondrel64Config.cmake.in ${package_directory}/VeskSondrel64Config.cmake @ONLY)
# A program that is built by way of pkg-config starts where it was built, without more.
set(kit_rpath "")
if(NOT WIN32)
  set(kit_rpath " -Wl,-rpath,\${libdir}")
endif()
write_basic_package_version_file(${package_directory}/VeskSondrel64ConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${package_directory}/VeskSondrel64Config.cmake ${package_directory}/VeskSondrel64ConfigVersion.cmake
  DESTINATION lib/cmake/VeskSondrel64)
if(NOT VESK_STRING_LAYOUT STREQUAL "msvc")
  configure_file(cmake/package/VeskSondrel64.pc.in ${package_directory}/VeskSondrel64.pc @ONLY)
  install(FILES ${package_directory}/VeskSondrel64.pc DESTINATION lib/pkgconfig)
endif()

set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY ON)
set(CPACK_VERBATIM_VARIABLES ON)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
else()
  set(CPACK_GENERATOR TGZ)
  # The debug information is ten times the code. The DLL is packed as it was tested.
  set(CPACK_STRIP_FILES ON)
endif()
set(CPACK_SYSTEM_NAME ${kit_system})
set(CPACK_PACKAGE_FILE_NAME VeskSondrel64-${PROJECT_VERSION}-${CPACK_SYSTEM_NAME})
include(KitContents)
if(VESK_FOR_PACKAGERS)
  return()
endif()
set(kit_archive ${CMAKE_BINARY_DIR}/${CPACK_PACKAGE_FILE_NAME})
include(CPack)

add_custom_target(kit
  COMMAND ${CMAKE_CPACK_COMMAND} --config ${CMAKE_BINARY_DIR}/CPackConfig.cmake -B ${CMAKE_BINARY_DIR}
  DEPENDS VeskSondrel64 $<TARGET_NAME_IF_EXISTS:VeskSondrel64Observed> $<TARGET_NAME_IF_EXISTS:VeskSondrelMessages>
    $<IF:$<BOOL:${VESK_FOR_VISUAL_CPP}>,import_library,sondrel>
    python_wheel bill_of_materials $<$<BOOL:${WIN32}>:nuget_package>
  USES_TERMINAL VERBATIM)
finish_kit(kit ${kit_archive}.$<IF:$<BOOL:${WIN32}>,zip,tar.gz>)
