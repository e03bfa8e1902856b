#!/bin/sh
# Configures and builds one preset: all targets or the named ones. The output is shown only after a failure.
set -eu

preset=$1
shift
log=build/$preset.log
mkdir -p build

say_if_terminal() {
    if [ -t 1 ]; then
        echo "$1"
    fi
}

quietly() {
    "$@" >>"$log" 2>&1 || {
        status=$?
        cat "$log" >&2
        exit "$status"
    }
}

: >"$log"
say_if_terminal "building $preset ..."
quietly cmake --preset "$preset"
quietly cmake --build --preset "$preset" ${1:+--target "$@"}
