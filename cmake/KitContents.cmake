# What a kit has besides the library, the tool and the C header: the bindings, its README, its licence, the changelog and
# the bill of materials. Included by cmake/Kit.cmake, which gives kit_data, kit_documents, kit_licences and package_directory.

# C++.
install(FILES include/vesk_sondrel.hpp DESTINATION include)
install(DIRECTORY include/vesk_sondrel DESTINATION include)
if(VESK_FOR_PACKAGERS) # which bring their own description of what is in a package
  return()
endif()

find_package(Python3 3.9 REQUIRED COMPONENTS Interpreter)
set(kit_python ${CMAKE_COMMAND} -E env PYTHONDONTWRITEBYTECODE=1)
set(packaging ${CMAKE_SOURCE_DIR}/packaging)

# Python: Debian's, which has setuptools.
set(wheel_directory ${package_directory}/python)
set(wheel ${wheel_directory}/vesk_sondrel-${PROJECT_VERSION}-py3-none-any.whl)
file(GLOB_RECURSE wheel_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/bindings/python/src/*.py)
add_custom_command(OUTPUT ${wheel}
  COMMAND ${kit_python} /usr/bin/python3 ${packaging}/build_wheel.py ${wheel_directory}
  DEPENDS ${wheel_sources} ${packaging}/build_wheel.py ${packaging}/archives.py VERBATIM)
add_custom_target(python_wheel ALL DEPENDS ${wheel})
install(FILES ${wheel} DESTINATION ${kit_data}/python)

# C#.
install(DIRECTORY bindings/csharp/VeskSondrel DESTINATION ${kit_data}/csharp PATTERN bin EXCLUDE PATTERN obj EXCLUDE)
if(WIN32)
  set(nuget_package ${package_directory}/csharp/VeskSondrel.nupkg)
  file(GLOB csharp_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/bindings/csharp/VeskSondrel/*.cs)
  add_custom_command(OUTPUT ${nuget_package}
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${package_directory}/csharp
    COMMAND ${kit_python} $<TARGET_FILE:Python3::Interpreter> ${packaging}/nuget/pack.py
      ${PROJECT_VERSION} $<TARGET_FILE:VeskSondrel64> ${package_directory}/csharp
    COMMAND ${CMAKE_COMMAND} -E touch ${nuget_package}
    DEPENDS VeskSondrel64 ${csharp_sources} ${packaging}/nuget/pack.py ${packaging}/nuget/VeskSondrel.targets
      ${packaging}/nuget/README.md ${packaging}/archives.py LICENSE
    VERBATIM)
  add_custom_target(nuget_package ALL DEPENDS ${nuget_package})
  # The package has the version in its name, as NuGet writes it; the file without one is the time stamp for the build.
  install(DIRECTORY ${package_directory}/csharp/ DESTINATION ${kit_data}/csharp
    FILES_MATCHING PATTERN "VeskSondrel.*.nupkg")
endif()

# The bill of materials lists what has a licence in the kit, and on Linux what the files load.
set(kit_components ${kit_licences})
list(REMOVE_ITEM kit_components README)
if(WIN32)
  set(kit_platform ${CPACK_SYSTEM_NAME})
else()
  set(kit_platform linux-${CMAKE_SYSTEM_PROCESSOR})
  list(APPEND kit_components system:sqlite3 system:zlib system:libstdc++)
endif()
set(bill ${package_directory}/sbom.spdx.json)
add_custom_command(OUTPUT ${bill}
  COMMAND ${kit_python} $<TARGET_FILE:Python3::Interpreter> ${packaging}/sbom.py
    --version ${PROJECT_VERSION} --kit ${kit_platform} --cxx ${CMAKE_CXX_COMPILER}
    --include ${CMAKE_BINARY_DIR}/hosted_headers --output ${bill} ${kit_components}
  DEPENDS ${packaging}/sbom.py ${packaging}/archives.py LICENSE VERBATIM)
add_custom_target(bill_of_materials ALL DEPENDS ${bill})
install(FILES ${bill} DESTINATION .)

# README.
if(kit_platform MATCHES "vc")
  set(kit_readme_system "Windows, Visual C++")
  set(kit_readme_lib "`VeskSondrel64.lib` and `VeskSondrel64.def`")
  set(kit_readme_host "Hosts are release builds of Visual C++ 2015 or later, x64. A host linked with /MD or /MT is served alike; \
in C++ the header `vesk_sondrel.hpp` also serves debug builds.")
elseif(WIN32)
  set(kit_readme_system "Windows, MinGW-w64")
  set(kit_readme_lib "`libVeskSondrel64.dll.a` and `VeskSondrel64.def`")
  set(kit_readme_host "A host that is built with MinGW-w64 needs the compiler's runtime: link it with `-static`, or put \
`libstdc++-6.dll`, `libgcc_s_seh-1.dll` and `libwinpthread-1.dll` in the same directory. Without them Windows does not start the \
program, and a console shows nothing but the status 53 (or 0xC0000135). `VeskSondrel64.dll` itself needs none of them.")
else()
  set(kit_readme_system "Linux, against simulated machines")
  set(kit_readme_lib "`libVeskSondrel64.so` and `libVeskMachine.so`")
  set(kit_readme_host "The library answers from a simulated machine. Programs built with the CMake package or pkg-config find \
it by the path of this kit; a program that is moved to another machine needs both files in its directory (`-Wl,-rpath,'$ORIGIN'`) or \
`LD_LIBRARY_PATH`.")
endif()
if(WIN32)
  set(kit_readme_bin "`VeskSondrel64.dll` and the tool `sondrel.exe`")
  set(kit_readme_nuget ", and a NuGet package")
else()
  set(kit_readme_bin "the tool `sondrel`")
  set(kit_readme_nuget "")
endif()
configure_file(packaging/kit-README.md.in ${package_directory}/README.md @ONLY)
install(FILES ${package_directory}/README.md LICENSE DESTINATION .)
if(EXISTS ${CMAKE_SOURCE_DIR}/CHANGELOG.md)
  install(FILES CHANGELOG.md DESTINATION .)
endif()
install(FILES docs/kits.md DESTINATION ${kit_documents})

# The archive once more, so that a second build of the tree gives the same bytes.
function(finish_kit target archive)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${kit_python} $<TARGET_FILE:Python3::Interpreter> ${packaging}/finish_kit.py ${archive} VERBATIM)
endfunction()
