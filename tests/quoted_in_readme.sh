#!/bin/sh
# Runs a check whose figures the README quotes, and fails if they are not the ones that it tells now: what stands before
# the ":" of its last line, whatever the README's line breaks and thousands' commas.
#
#   tests/quoted_in_readme.sh PROGRAM [ARGUMENT...]
set -eu

readme=$(cd "$(dirname "$0")/.." && pwd)/README.md
status=0
told=$("$@") || status=$?
printf '%s\n' "$told"
[ "$status" -eq 0 ] || exit "$status"
figures=$(printf '%s\n' "$told" | sed -n '$s/:[^:]*$//p')
tr -s '\n ' '  ' <"$readme" | sed 's/\([0-9]\),\([0-9]\)/\1\2/g' | grep -qF "$figures" || {
    echo "$readme does not say: $figures" >&2
    exit 1
}
