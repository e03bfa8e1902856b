# The options of all code of this project: warnings are errors here, and not in the libraries.
add_library(project_options INTERFACE)
if(MSVC)
  # Standard C++, sources in UTF-8. Windows' own headers cause 5105; 4190 warns that two exports return an object of C++
  # under a plain name, which is intended. Warnings are not errors yet: this compiler has not compiled the tree.
  target_compile_options(project_options INTERFACE
    /W4 /permissive- /utf-8 /Zc:preprocessor /wd5105 $<$<COMPILE_LANGUAGE:CXX>:/Zc:__cplusplus /wd4190>)
  add_compile_definitions(_CRT_SECURE_NO_WARNINGS)
  # Checks of indirect calls and of returns; imported libraries are loaded from the system directory only (0x800 is
  # LOAD_LIBRARY_SEARCH_SYSTEM32).
  add_compile_options(/guard:cf)
  add_link_options(/Brepro /DYNAMICBASE /HIGHENTROPYVA /NXCOMPAT /guard:cf /CETCOMPAT /DEPENDENTLOADFLAG:0x800)
else()
  target_compile_options(project_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Designated initialisers and short aggregates leave the rest at its default on purpose.
    target_compile_options(project_options INTERFACE -Wno-missing-field-initializers)
    # Reports the inactive members of moved variants, depending on release and optimisation.
    target_compile_options(project_options INTERFACE -Wno-maybe-uninitialized)
  endif()
  if(NOT WIN32)
    add_link_options(-Wl,-z,relro -Wl,-z,now) # what the loader has filled in cannot be written afterwards
  endif()
  # The same tree gives the same files in every directory.
  target_compile_options(project_options INTERFACE
    "-ffile-prefix-map=${CMAKE_SOURCE_DIR}=." "-ffile-prefix-map=${CMAKE_BINARY_DIR}=build")
endif()
target_include_directories(project_options INTERFACE
  ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/include)

# Whose release std::string RF_PhyMode and RF_BTConnectedType return: the compiler's, except in a DLL that MinGW-w64
# builds for hosts of Visual C++.
if(MSVC)
  set(VESK_STRING_LAYOUT msvc)
elseif(MINGW)
  set(VESK_STRING_LAYOUT libstdc++ CACHE STRING "The std::string that the DLL returns: libstdc++ or msvc")
  set_property(CACHE VESK_STRING_LAYOUT PROPERTY STRINGS libstdc++ msvc)
  if(NOT VESK_STRING_LAYOUT MATCHES "^(libstdc[+][+]|msvc)$")
    message(FATAL_ERROR "VESK_STRING_LAYOUT is libstdc++ or msvc, not '${VESK_STRING_LAYOUT}'.")
  endif()
else()
  set(VESK_STRING_LAYOUT libstdc++)
endif()
if(MINGW AND VESK_STRING_LAYOUT STREQUAL "msvc")
  set(VESK_FOR_VISUAL_CPP TRUE)
endif()
# All sources of this project are compiled by one compiler: the header's rule for hosts does not apply to them.
target_compile_definitions(project_options INTERFACE VESK_STRING_LAYOUT=VESK_STRING_LAYOUT_SAME_COMPILER)

if(WIN32)
  # Windows 7 is the oldest system the library loads on.
  add_compile_definitions(_WIN32_WINNT=0x0601 WINVER=0x0601 UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX)
endif()

option(VESK_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

# Line numbers for a debugger, a profiler and the sanitizers' reports. Full debug information takes a quarter of the
# compile time; -D CMAKE_BUILD_TYPE=Debug alone has it.
if(NOT MSVC AND (CMAKE_BUILD_TYPE STREQUAL "RelWithDebInfo" OR VESK_SANITIZE))
  string(TOUPPER "${CMAKE_BUILD_TYPE}" kind)
  foreach(flags IN ITEMS CMAKE_C_FLAGS_${kind} CMAKE_CXX_FLAGS_${kind})
    string(REGEX REPLACE "-g( |$)" "-g1\\1" ${flags} "${${flags}}")
  endforeach()
endif()

if(VESK_SANITIZE)
  # Optimised a little: the fault sweep makes tens of thousands of calls.
  add_compile_options(-O1 -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

option(VESK_FUZZ "Build the fuzz targets, and nothing else (clang only)" OFF)
if(VESK_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "VESK_FUZZ needs clang: -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++")
  endif()
  # Library and machine report the executed branches to the fuzzer. The build should be fast.
  add_compile_options(-O1 -gline-tables-only -fsanitize=fuzzer-no-link)
endif()

# What hosts load: a function whose frame was overwritten ends the process and does not return.
function(harden)
  if(NOT MSVC) # which does so by itself
    foreach(target IN LISTS ARGV)
      target_compile_options(${target} PRIVATE -fstack-protector-strong)
      target_link_options(${target} INTERFACE -fstack-protector-strong)
    endforeach()
  endif()
endfunction()
