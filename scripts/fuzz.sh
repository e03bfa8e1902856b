#!/bin/sh
# Runs the fuzz targets, as many at a time as there are processors, each for SECONDS on its seeds in fuzz/corpus/ and on
# the inputs that earlier runs found:
#
#   scripts/fuzz.sh SECONDS [NAME...]
#
# New inputs are written to build/fuzz/found/NAME. A run that fails prints its whole log, which names the input.
set -eu

run_one() {
    name=$1
    log=build/fuzz/$name.log
    found=build/fuzz/found/$name
    mkdir -p "$found"
    set -- "$found" "fuzz/corpus/$name"
    if [ "$name" = profile ]; then
        set -- "$@" machines
    fi
    "build/fuzz/bin/fuzz_$name" -max_total_time="$seconds" -timeout=25 -print_final_stats=1 \
        -artifact_prefix="build/fuzz/fault_${name}_" "$@" >"$log" 2>&1 || {
        cat "$log" >&2
        exit 255 # which ends the others too
    }
    if [ -t 1 ]; then
        echo "fuzz_$name: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") inputs, no fault"
    fi
}

seconds=$1
shift
if [ "${FUZZ_ONE-}" ]; then
    run_one "$1"
    exit
fi
if [ $# -eq 0 ]; then
    for target in fuzz/fuzz_*.cpp; do
        target=${target##*/fuzz_}
        set -- "$@" "${target%.cpp}"
    done
fi
if [ -t 1 ]; then
    echo "fuzzing $# targets for $seconds s each ..."
fi
printf '%s\n' "$@" | FUZZ_ONE=1 xargs -P "$(nproc)" -n 1 "$0" "$seconds"
echo "fuzz: $# targets ran $seconds s each without a fault"
