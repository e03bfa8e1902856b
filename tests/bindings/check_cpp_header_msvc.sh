#!/bin/sh
# The C++ header in clang's MSVC mode. Visual C++'s own headers are not at hand: those of the build machine's standard
# library are used in their place, which shows what the language and the ABI's types refuse, not what that library lacks.
#
#   tests/bindings/check_cpp_header_msvc.sh CLANGXX
set -eu

clang=$1
here=$(cd "$(dirname "$0")" && pwd)
standins=$(mktemp -d "${TMPDIR:-/tmp}/vesk-msvc.XXXXXX")
trap 'rm -rf "$standins"' EXIT

# long is 32 bits wide there, so that the C library's types are those of its 32-bit ABI.
mkdir "$standins/gnu"
: >"$standins/gnu/stubs-x32.h"
set -- --target=x86_64-pc-windows-msvc -fms-compatibility-version=19.38 -D__x86_64__ -D__ILP32__ -D_GNU_SOURCE \
    -D__STRICT_ANSI__ -isystem "$standins"
for directory in $("$clang" -x c++ -E -v /dev/null 2>&1 | sed -n '/^#include </,/^End/s/^ \(\/.*\)/\1/p' | grep -v clang); do
    set -- "$@" -isystem "$directory"
done
for macro in $(echo | "$clang" -std=c++20 -dM -E -x c++ - | sed -n 's/^#define \(__GCC_ATOMIC_[A-Z0-9_]*\) \(.*\)/-D\1=\2/p'); do
    set -- "$@" "$macro"
done
"$here/check_cpp_header.sh" "$clang" "$@"
