#!/bin/sh
# That the comparison of two libraries that agree would fail if they did not: check_comparison.sh COMPARE_ANSWERS
set -eu

compare=$1
reports=$(mktemp -d)
trap 'rm -rf "$reports"' EXIT

# report FILE VALUE [STATUS]: one export's answer as a library prints it
report() {
    printf '[{"exports": [{"name": "Lid", "status": "%s", "value": %s}]}]' "${3-ok}" "$2" >"$reports/$1.json"
}

# expect STATUS TEXT: how the comparison ends, and what it says
expect() {
    status=0
    printed=$("$compare" "$reports") || status=$?
    case $printed in
    *"$2"*) [ "$status" -eq "$1" ] && return ;;
    esac
    printf 'status %s and "%s" were expected, not %s and\n%s\n' "$1" "$2" "$status" "$printed" >&2
    exit 1
}

expect 1 "there are no reports"
report a.native 1
expect 1 "a: a report is missing"
report a.windows 1
expect 0 "1 machines, 1 exports, 1 answers compared: 0 problems"
report a.windows '"1"'
expect 1 "a, part 1: Lid differs from character"
echo '[]' >"$reports/a.windows.json"
expect 1 "a different number of reports"
echo '[{"exports": []}]' >"$reports/a.windows.json"
expect 1 "do not have the same exports"
report a.native null "not run"
report a.windows null "not run"
expect 1 "Lid was never called"
