#!/bin/sh
# The public headers compile alone, as C and as C++ from 2011 on, without a warning, and C does not see the exports that
# return a string object of C++.
#
#   tests/kit/check_header.sh CC CXX
set -eu

if [ $# -ne 2 ]; then
    echo "usage: check_header.sh CC CXX" >&2
    exit 64
fi
cc=$1
cxx=$2
include=$(cd "$(dirname "$0")/../../include" && pwd)

# COMPILER STANDARD LANGUAGE SOURCE
compile() {
    printf '%s\n' "$4" |
        "$1" "-std=$2" -x "$3" -fsyntax-only -Wall -Wextra -Wpedantic -Werror "-I$include" -
}

for header in vesk_sondrel.h vesk_sondrel_machine.h vesk_sondrel_observer.h; do
    for standard in c11 c17; do
        compile "$cc" "$standard" c "#include \"$header\""
    done
    for standard in c++11 c++14 c++17 c++20; do
        compile "$cxx" "$standard" c++ "#include \"$header\""
    done
done

string_object='#include "vesk_sondrel.h"
void* phy(void) { return (void*)&RF_PhyMode; }'
if compile "$cc" c11 c "$string_object" 2>/dev/null; then
    echo "check_header.sh: C sees an export that returns a C++ object" >&2
    exit 1
fi
compile "$cxx" c++11 c++ '#include "vesk_sondrel.h"
std::string phy() { return RF_PhyMode() + RF_BTConnectedType(); }
static_assert(sizeof(VeskChar16) == 2, "UTF-16");'
