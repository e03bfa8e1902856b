#!/bin/sh
# Packs the kit of a build, unpacks it elsewhere and uses it as its users do: its tool, its CMake package, its
# pkg-config file and, for Windows, its .def file.
#
#   tests/kit/check_kit.sh build/native CC CXX
#   tests/kit/check_kit.sh build/windows CC CXX TOOLCHAIN_FILE DLLTOOL     in run_under_wine.sh
set -eu

if [ $# -ne 3 ] && [ $# -ne 5 ]; then
    echo "usage: check_kit.sh BUILD_DIRECTORY CC CXX [TOOLCHAIN_FILE DLLTOOL]" >&2
    exit 64
fi
build=$(cd "$1" && pwd)
cc=$2
cxx=$3
toolchain=${4:-}
dlltool=${5:-}
here=$(cd "$(dirname "$0")" && pwd)

work=$(mktemp -d "${TMPDIR:-/tmp}/a kit elsewhere.XXXXXX")
trap 'rm -rf "$work"' EXIT
trap 'exit 130' HUP INT TERM
log=$work/log

# Runs a step and shows what it said when it fails.
quietly() {
    "$@" >"$log" 2>&1 || {
        cat "$log" >&2
        echo "check_kit.sh: failed: $*" >&2
        exit 1
    }
}

# Runs a program of the kit and holds its output against what was expected of it.
expect() {
    wanted=$1
    shift
    answer=$(${toolchain:+wine} "$@" 2>"$log" | tr -d '\r') || true
    [ "$answer" = "$wanted" ] || {
        cat "$log" >&2
        echo "check_kit.sh: $* said '$answer' and not '$wanted'" >&2
        exit 1
    }
}

# Installed and packed are the same.
quietly cmake --install "$build" --prefix "$work/installed"
mkdir "$work/unpacked"
quietly cpack --config "$build/CPackConfig.cmake" -B "$work/packed"
system=${toolchain:+windows-mingw}
system=${system:-linux-$(uname -m)}
(cd "$work/unpacked" && quietly cmake -E tar xf "$work"/packed/VeskSondrel64-*-"$system".*)
kit=$(echo "$work"/unpacked/VeskSondrel64-*)
(cd "$work/installed" && find . -type f | sort) >"$work/installed.list"
(cd "$kit" && find . -type f | sort) | diff "$work/installed.list" -
rm -rf "$work/installed"

# The tool finds the kit's library.
tool=$kit/bin/sondrel${toolchain:+.exe}
expect 65537 "$tool" call GetIoDllVersion
if [ -z "$toolchain" ]; then
    for machine in gl "$kit/share/vesk-sondrel/machines/gl.json"; do
        expect 18252 "$tool" --machine "$machine" --store :memory: call EC_ReadEcFwRev
    done
fi

# find_package. A toolchain file that looks for packages in its own roots needs the very directory.
if [ -n "$toolchain" ]; then
    set -- -D "CMAKE_TOOLCHAIN_FILE=$toolchain" -D "VeskSondrel64_DIR=$kit/lib/cmake/VeskSondrel64"
else
    set -- -D "CMAKE_C_COMPILER=$cc" -D "CMAKE_CXX_COMPILER=$cxx" -D "CMAKE_PREFIX_PATH=$kit"
fi
quietly cmake -G Ninja -S "$here/consumer" -B "$work/consumer" -D CMAKE_BUILD_TYPE=Release "$@"
quietly cmake --build "$work/consumer"

# pkg-config, and an import library made from the .def file.
flags=$(PKG_CONFIG_LIBDIR="$kit/lib/pkgconfig" pkg-config --cflags --libs VeskSondrel64)
eval "quietly '$cc' -std=c11 '$here/consumer/consumer.c' -o '$work/consumer/by_pkg_config.exe' $flags"
if [ -n "$toolchain" ]; then
    (cd "$work" && quietly "$dlltool" -d "$kit/lib/VeskSondrel64.def" -l by_def.a)
    quietly "$cxx" -std=c++17 -static "-I$kit/include" "$here/consumer/consumer.cpp" "$work/by_def.a" \
        -o "$work/consumer/by_def.exe"
    cp "$kit/bin/VeskSondrel64.dll" "$work/consumer"
fi

first="interface 65537, sensor {"
second="radio standard read"
expect "$first" "$work/consumer/consumer_c${toolchain:+.exe}"
expect "$second" "$work/consumer/consumer_cpp${toolchain:+.exe}"
expect "$first" "$work/consumer/by_pkg_config.exe"
[ -z "$toolchain" ] || expect "$second" "$work/consumer/by_def.exe"
