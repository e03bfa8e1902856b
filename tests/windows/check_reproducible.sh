#!/bin/sh
# Builds the DLL a second time from a copy of the tree in another directory: both files have to be the same, byte for
# byte.
#
#   tests/windows/check_reproducible.sh build/windows
#   tests/windows/check_reproducible.sh build/windows-vc
set -eu

if [ $# -ne 1 ]; then
    echo "usage: check_reproducible.sh BUILD_DIRECTORY" >&2
    exit 64
fi
first=$(cd "$1" && pwd)/bin/VeskSondrel64.dll
preset=$(basename "$1")
root=$(cd "$(dirname "$0")/../.." && pwd)

elsewhere=$(mktemp -d "${TMPDIR:-/tmp}/a tree elsewhere.XXXXXX")
trap 'rm -rf "$elsewhere"' EXIT
trap 'exit 130' HUP INT TERM

cd "$root"
git ls-files --cached --others --exclude-standard -z |
    tar --null --files-from=- --create | tar --extract -C "$elsewhere"
cd "$elsewhere"
build() {
    cmake --preset "$preset" && cmake --build --preset "$preset" --target VeskSondrel64
}
build >build.log 2>&1 || {
    cat build.log >&2
    exit 1
}
cmp "$first" "build/$preset/bin/VeskSondrel64.dll"
