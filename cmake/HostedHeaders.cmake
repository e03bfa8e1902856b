# Header-only libraries of the build machine, also for a cross build.
#
# Their packages install below /usr/include, which a cross compiler must not search: it has the headers of the build
# machine's C library. The libraries are copied to the build tree instead.
function(add_hosted_headers target directory)
  find_path(${target}_ROOT ${directory} PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  set(copies ${CMAKE_BINARY_DIR}/hosted_headers)
  file(COPY ${${target}_ROOT}/${directory} DESTINATION ${copies})
  add_library(${target} INTERFACE)
  set_property(GLOBAL APPEND PROPERTY VESK_HOSTED_HEADERS ${target})
  target_include_directories(${target} SYSTEM INTERFACE ${copies})
endfunction()

add_hosted_headers(nlohmann_json nlohmann)
add_hosted_headers(cli11 CLI)
