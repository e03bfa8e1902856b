#!/bin/sh
# The public headers compile alone, as C and as C++ from 2011 on, without a warning. The two exports that return a string
# object of C++ compile where the kit can serve the host; elsewhere the first error says in one sentence why not.
#
#   tests/kit/check_header.sh CC CXX
set -eu

if [ $# -ne 2 ]; then
    echo "usage: check_header.sh CC CXX" >&2
    exit 64
fi
cc=$1
cxx=$2
root=$(cd "$(dirname "$0")/../.." && pwd)
strings=$root/tests/kit/strings

work=$(mktemp -d "${TMPDIR:-/tmp}/headers.XXXXXX")
trap 'rm -rf "$work"' EXIT
trap 'exit 130' HUP INT TERM
cp "$root"/include/*.h "$work"

# COMPILER STANDARD LANGUAGE SOURCE [OPTION...]
compile() {
    compiler=$1
    standard=$2
    language=$3
    printf '%s\n' "$4" >"$work/source"
    shift 4
    "$compiler" "-std=$standard" -x "$language" -fsyntax-only -Wall -Wextra -Wpedantic -Werror "-I$work" "$@" "$work/source"
}

for header in vesk_sondrel.h vesk_sondrel_machine.h vesk_sondrel_observer.h; do
    for standard in c11 c17; do
        compile "$cc" "$standard" c "#include \"$header\""
    done
    for standard in c++11 c++14 c++17 c++20; do
        compile "$cxx" "$standard" c++ "#include \"$header\""
    done
done
compile "$cxx" c++11 c++ '#include "vesk_sondrel.h"
static_assert(sizeof(VeskChar16) == 2, "UTF-16");'

fail() {
    echo "check_header.sh: $1" >&2
    cat "$work/errors" >&2
    exit 1
}

# What a program does with each of the two: it calls them, and asks for their type to load them at run time.
calls='void* find(const char* name);
std::string phy() { return RF_PhyMode(); }
std::string types() { return RF_BTConnectedType(); }
std::string loaded() { return reinterpret_cast<decltype(&RF_PhyMode)>(find("RF_PhyMode"))(); }'

# LAYOUT [OPTION...]: this host can use both.
serves() {
    layout=-DVESK_STRING_LAYOUT=VESK_STRING_LAYOUT_$1
    shift
    compile "$cxx" c++11 c++ "#include \"vesk_sondrel.h\"
$calls" "$layout" "$@" 2>"$work/errors" || fail "$layout does not serve: $*"
}

# WORDS LANGUAGE LAYOUT [OPTION...]: including compiles without a warning, and each use fails with these words.
refuses() {
    words=$1
    language=$2
    layout=-DVESK_STRING_LAYOUT=VESK_STRING_LAYOUT_$3
    shift 3
    if [ "$language" = c ]; then
        compiler=$cc standard=c11
        set -- "$layout" "$@"
        uses='void phy(void) { RF_PhyMode(); }
void types(void) { RF_BTConnectedType(); }'
    else
        compiler=$cxx standard=c++11
        set -- "$layout" "$@"
        uses=$calls
    fi
    compile "$compiler" "$standard" "$language" '#include "vesk_sondrel.h"' "$@" 2>"$work/errors" ||
        fail "including does not compile: $language $*"
    echo "$uses" >"$work/uses"
    while read -r use; do
        case $use in void\**) continue ;; esac
        if compile "$compiler" "$standard" "$language" "#include \"vesk_sondrel.h\"
void* find(const char* name);
$use" "$@" 2>"$work/errors"; then
            fail "compiles: $language $* $use"
        fi
        grep -m 1 'error:' "$work/errors" | grep -qF "$words" || fail "the first error does not say '$words': $language $* $use"
    done <"$work/uses"
}

# Each rule as compilers with and without the attribute apply it.
check_strings() {
    from_c=$1
    serves LIBSTDCXX
    serves SAME_COMPILER
    for layout in LIBSTDCXX MSVC SAME_COMPILER; do
        refuses "$from_c" c "$layout"
    done
    refuses "take the kit windows-mingw" c++ MSVC
    refuses "_GLIBCXX_USE_CXX11_ABI 1" c++ LIBSTDCXX -D_GLIBCXX_USE_CXX11_ABI=0
    refuses "the C runtime msvcrt" c++ LIBSTDCXX -D_UCRT
    refuses "build with libstdc++" c++ LIBSTDCXX "-I$strings/other"
    case $("$cxx" --version) in *clang*) ;; *) return 0 ;; esac

    set -- --target=x86_64-pc-windows-msvc -fms-compatibility-version=19.38 -ffreestanding -nostdlibinc
    serves MSVC "$@" "-I$strings/visual_cpp"
    serves SAME_COMPILER "$@" "-I$strings/visual_cpp" -D_DEBUG
    refuses "$from_c" c MSVC "$@"
    refuses "Visual C++ hosts take the kit windows-vc" c++ LIBSTDCXX "$@" "-I$strings/visual_cpp"
    for debug in -D_DEBUG -D_ITERATOR_DEBUG_LEVEL=1 -D_ITERATOR_DEBUG_LEVEL=2; do
        refuses "_ITERATOR_DEBUG_LEVEL 0" c++ MSVC "$@" "-I$strings/visual_cpp" "$debug"
    done
    refuses "Visual C++ 2015 or later" c++ MSVC "$@" "-I$strings/other"
}

check_strings "call them from C++"
sed 's/__has_attribute(unavailable)/0/' "$root/include/vesk_sondrel.h" >"$work/vesk_sondrel.h"
! cmp -s "$root/include/vesk_sondrel.h" "$work/vesk_sondrel.h" || fail "the header does not ask for the attribute"
check_strings "call_them_from_Cpp"
