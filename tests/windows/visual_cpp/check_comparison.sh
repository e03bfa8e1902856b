#!/bin/sh
# The comparison of tests/windows/comparison with the DLL for Visual C++, on a machine whose strings are too long for the
# object: the tool reads this DLL's strings, and all other exports are the same. Runs within run_under_wine.sh.
#
#   check_comparison.sh build/windows-vc build/windows build/native [PROFILE...]
set -eu

if [ $# -lt 3 ]; then
    echo "usage: check_comparison.sh BUILD_DIRECTORY MINGW_BUILD_DIRECTORY NATIVE_BUILD_DIRECTORY [PROFILE...]" >&2
    exit 64
fi
root=$(cd "$(dirname "$0")/../../.." && pwd)
build=$(cd "$1" && pwd)
mingw=$2
native=$3
shift 3
[ $# -gt 0 ] || set -- "$root/tests/comparison/machines/awkward-services.json"

mkdir -p "$build/comparison/bin"
cp "$mingw"/bin/library_answers.exe "$mingw"/bin/*.sys "$build/bin/VeskSondrel64.dll" "$build/comparison/bin"
"$root/tests/windows/comparison/compare_libraries.sh" "$build/comparison" "$native" "$@"
