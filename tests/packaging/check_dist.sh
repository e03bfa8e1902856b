#!/bin/sh
# Builds the source archive as the ports do, installs it, and uses what was installed. Takes minutes: not part of ctest.
#
#   tests/packaging/check_dist.sh
set -eu

root=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d "${TMPDIR:-/tmp}/a port elsewhere.XXXXXX")
trap 'rm -rf "$work"' EXIT
trap 'exit 130' HUP INT TERM

quietly() {
    "$@" >"$work/log" 2>&1 || {
        cat "$work/log" >&2
        echo "check_dist.sh: failed: $*" >&2
        exit 1
    }
}

quietly "$root/packaging/make_dist.py" "$work"
(cd "$work" && tar -xzf VeskSondrel64-*-src.tar.gz)
quietly cmake -G Ninja -S "$work"/VeskSondrel64-*-src -B "$work/build" -D CMAKE_BUILD_TYPE=Release -D VESK_FOR_PACKAGERS=ON
quietly cmake --build "$work/build"
quietly cmake --install "$work/build" --prefix "$work/installed"
for file in lib/libVeskSondrel64.so lib/libVeskMachine.so include/vesk_sondrel.h include/vesk_sondrel.hpp \
    include/vesk_sondrel/generated/readings.hpp lib/cmake/VeskSondrel64/VeskSondrel64Config.cmake bin/sondrel; do
    [ -f "$work/installed/$file" ] || { echo "check_dist.sh: $file is missing" >&2; exit 1; }
done
quietly cmake -G Ninja -S "$root/tests/kit/consumer" -B "$work/consumer" -D "CMAKE_PREFIX_PATH=$work/installed"
quietly cmake --build "$work/consumer"
"$work/consumer/consumer_c"
