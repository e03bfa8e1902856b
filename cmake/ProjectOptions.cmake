# What all code of this project is compiled with: warnings are errors here, and nowhere else.
add_library(project_options INTERFACE)
if(MSVC)
  target_compile_options(project_options INTERFACE /W4 /WX /permissive- /utf-8)
else()
  target_compile_options(project_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Designated initialisers and short aggregates leave the rest at its default on purpose.
    target_compile_options(project_options INTERFACE -Wno-missing-field-initializers)
  endif()
  # A build of one tree is the same file wherever the tree stands.
  target_compile_options(project_options INTERFACE
    "-ffile-prefix-map=${CMAKE_SOURCE_DIR}=." "-ffile-prefix-map=${CMAKE_BINARY_DIR}=build")
endif()
target_include_directories(project_options INTERFACE
  ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/include)

option(VESK_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
if(VESK_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
