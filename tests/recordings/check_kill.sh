#!/bin/sh
# A process that is killed while it records leaves a recording that can be read up to its last complete line.
#
#   check_kill.sh BUILD_DIRECTORY [TIMES]
set -eu

bin=$1/bin
times=${2:-100}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

begun=0
cut=0
time=0
while [ "$time" -lt "$times" ]; do
    time=$((time + 1))
    rec=$work/$time.rec
    VESK_RECORD=$rec "$bin/library_answers" default >/dev/null 2>&1 &
    host=$!
    # Later each time, so that it dies in all of its work.
    sleep "0.$(printf %03d $((time % 100 + 5)))"
    kill -9 "$host" 2>/dev/null || true
    wait "$host" 2>/dev/null || true
    [ -f "$rec" ] || continue
    begun=$((begun + 1))
    status=0
    "$bin/sondrel" diff "$rec" "$rec" >"$work/output" 2>&1 || status=$?
    [ "$status" -eq 0 ] || {
        echo "killed for the ${time}th time, it cannot be read: $(cat "$work/output")" >&2
        exit 1
    }
    lines=$(wc -l <"$rec")
    ends=$(grep -c '^{"return"' "$rec" || true)
    [ "$lines" -gt 1 ] && [ "$ends" -lt 400 ] && cut=$((cut + 1))
    rm "$rec"
done
[ "$cut" -ge $((times / 4)) ] || {
    echo "of $begun recordings only $cut were cut: nothing was checked" >&2
    exit 1
}
echo "$begun recordings, $cut of them cut short"
