#!/bin/sh
# The answers of both libraries on every machine, export by export: the native one here, the real DLL under Wine. Runs within
# run_under_wine.sh; some profiles in place of all of them, to look at a difference.
#
#   tests/windows/run_under_wine.sh build/windows tests/windows/comparison/compare_libraries.sh build/windows build/native [PROFILE...]
set -eu

if [ $# -lt 2 ]; then
    echo "usage: compare_libraries.sh WINDOWS_BUILD_DIRECTORY NATIVE_BUILD_DIRECTORY [PROFILE...]" >&2
    exit 64
fi
root=$(cd "$(dirname "$0")/../../.." && pwd)
windows=$1/bin
native=$2/bin
reports=$1/comparison
shift 2

for program in "$native/library_answers" "$native/compare_answers" "$windows/library_answers.exe"; do
    if [ ! -f "$program" ]; then
        echo "compare_libraries.sh: $program is missing: make test-windows builds both presets, native and windows" >&2
        exit 66
    fi
done

rm -rf "$reports"
mkdir -p "$reports"
if [ $# -eq 0 ]; then
    set -- "$root"/machines/*.json "$root"/tests/comparison/machines/*.json
fi
for profile in "$@"; do
    machine=${profile##*/}
    machine=${machine%.json}
    # The fake driver's answers are fixed once: a machine with a course is compared in its first state.
    if grep -q '"course"' "$profile"; then
        python3 - "$profile" "$reports/$machine.profile" <<'STILL'
import json, sys
profile = json.load(open(sys.argv[1], encoding="utf-8"))
del profile["course"]
json.dump(profile, open(sys.argv[2], "w", encoding="utf-8"))
STILL
        profile=$reports/$machine.profile
    fi
    # What a program that was ended halfway left is not this machine's.
    rm -rf "${WINEPREFIX:?}/drive_c/ProgramData/Vesk"
    "$native/library_answers" "$profile" >"$reports/$machine.native.json"
    wine "$windows/library_answers.exe" "$profile" >"$reports/$machine.windows.json" </dev/null
done
"$native/compare_answers" "$reports"
