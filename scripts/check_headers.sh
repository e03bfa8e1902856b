#!/bin/sh
# Compiles each header of the library, the machine, the observer and the tool as a source by itself, so that none of
# them rests on what another file includes before it. Those of the Windows back end are compiled with mingw-w64, all
# others natively.
set -eu

# COMPILER OPTION... <LIST: one header a line
# shellcheck disable=SC2016 # the inner shell expands
compile_each() {
    xargs -P "$(nproc)" -I HEADER sh -c '
        header=$1
        shift
        printf "#include \"%s\"\n" "$header" |
            "$@" -std=c++20 -x c++ -fsyntax-only -Wall -Wextra -Werror -I. -Isrc -Iinclude -Itools/sondrel - || {
            echo "check_headers: $header does not compile alone" >&2
            exit 1
        }' sh HEADER "$@"
}

headers() {
    git ls-files --cached --others --exclude-standard -- "$@"
}

headers 'unicode/*.h' 'include/*.h' 'src/*.h' 'observer/*.h' 'machine/*.h' 'tools/*.h' ':!src/platform/windows' |
    compile_each g++ -Wno-missing-field-initializers
headers 'src/platform/windows/*.h' |
    compile_each x86_64-w64-mingw32-g++-win32 -Wno-missing-field-initializers \
        -D_WIN32_WINNT=0x0601 -DUNICODE -D_UNICODE -DWIN32_LEAN_AND_MEAN -DNOMINMAX
