#!/bin/sh
# Packs the kit for Visual C++, unpacks it elsewhere and uses it as its users do: its tool, its header, its CMake
# package with a host of the MSVC ABI. Runs within run_under_wine.sh.
#
#   check_kit.sh build/windows-vc build/windows TOOLCHAIN_FILE CLANG LLD_LINK
set -eu

if [ $# -ne 5 ]; then
    echo "usage: check_kit.sh BUILD_DIRECTORY MINGW_BUILD_DIRECTORY TOOLCHAIN_FILE CLANG LLD_LINK" >&2
    exit 64
fi
build=$(cd "$1" && pwd)
mingw=$(cd "$2" && pwd)
toolchain=$3
clang=$4
lld=$5
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../../.." && pwd)

work=$(mktemp -d "${TMPDIR:-/tmp}/a kit elsewhere.XXXXXX")
trap 'rm -rf "$work"' EXIT
trap 'exit 130' HUP INT TERM
log=$work/log

fail() {
    cat "$log" >&2
    echo "check_kit.sh: $1" >&2
    exit 1
}

quietly() {
    "$@" >"$log" 2>&1 || fail "failed: $*"
}

# PROJECT PACKAGE OPTION...: configures a project with a kit.
configure() {
    sources=$1
    directory=$2
    shift 2
    cmake -G Ninja -S "$sources" -B "$work/project" -D CMAKE_BUILD_TYPE=Release -D "VeskSondrel64_DIR=$directory" "$@" \
        >"$log" 2>&1
}

# WORDS PROJECT PACKAGE OPTION...
refuses() {
    words=$1
    shift
    ! configure "$@" || fail "the wrong compiler is not refused: $*"
    tr -s ' \n' ' ' <"$log" | grep -qF "$words" || fail "the reason is not '$words'"
    rm -rf "$work/project"
}

mkdir "$work/unpacked"
quietly cpack --config "$build/CPackConfig.cmake" -B "$work/packed"
(cd "$work/unpacked" && quietly cmake -E tar xf "$work"/packed/VeskSondrel64-*-windows-vc.zip)
kit=$(echo "$work"/unpacked/VeskSondrel64-*-windows-vc)

# The header differs from the tree's in the one line that says which string the DLL returns.
diff "$root/include/vesk_sondrel.h" "$kit/include/vesk_sondrel.h" >"$work/difference" || true
{
    grep -c '^[<>]' "$work/difference"
    grep -c '^> #define VESK_STRING_LAYOUT VESK_STRING_LAYOUT_MSVC$' "$work/difference"
} | tr '\n' ' ' | grep -qx '2 1 ' || fail "the header is not the tree's with the layout of Visual C++"

# CMake takes clang for Visual C++ by its name. There is no C library to try the compiler with.
ln -s "$clang" "$work/clang-cl"
set -- -D CMAKE_SYSTEM_NAME=Windows -D "CMAKE_CXX_COMPILER=$work/clang-cl" -D "CMAKE_LINKER=$lld" \
    -D CMAKE_CXX_COMPILER_TARGET=x86_64-pc-windows-msvc -D CMAKE_CXX_STANDARD_LIBRARIES= \
    -D SYSTEM_LIBRARIES=/usr/x86_64-w64-mingw32/lib

# Each kit refuses the other's compiler.
package=$kit/lib/cmake/VeskSondrel64
version=$(basename "$kit")
version=${version%-windows-vc}
refuses "This is the kit windows-mingw: this compiler needs the kit $version-windows-vc." \
    "$here/host" "$mingw/package" "$@"
refuses "This is the kit windows-vc: this compiler needs the kit $version-windows-mingw." \
    "$root/tests/kit/consumer" "$package" -D "CMAKE_TOOLCHAIN_FILE=$toolchain"

configure "$here/host" "$package" "$@" || fail "the kit is not found by its CMake package"
quietly cmake --build "$work/project"
for library in "$kit/bin/VeskSondrel64.dll" "$build/bin/fake_radios.dll" "$build/bin/chosen_strings.dll"; do
    cp "$library" "$work/project"
done
# Output goes to files: what the program starts of Wine's would keep a pipe open.
quietly wine "$work/project/visual_cpp_host.exe" </dev/null

# The tool is built by the other compiler and reads both strings.
quietly wine "$kit/bin/sondrel.exe" call RF_PhyMode </dev/null
tr -d '\r' <"$log" | grep -qx init_string || fail "the tool does not read the string"
