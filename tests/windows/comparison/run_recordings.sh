#!/bin/sh
# What the real DLL was asked under Wine, replayed by the native library: each machine is recorded by the observed DLL
# and read again from the recording. Runs within run_under_wine.sh.
#
#   run_recordings.sh WINDOWS_BUILD_DIRECTORY NATIVE_BUILD_DIRECTORY [PROFILE...]
set -eu

root=$(cd "$(dirname "$0")/../../.." && pwd)
windows=$1/bin
native=$2/bin
reports=$1/recordings
shift 2
rm -rf "$reports"
mkdir -p "$reports/bin"
# The program takes the DLL from its own directory, where the observed one is now.
cp "$windows/library_answers.exe" "$windows/fake_driver.sys" "$windows/observed/VeskSondrel64.dll" "$reports/bin"
if [ $# -eq 0 ]; then
    set -- "$root"/machines/default.json "$root"/machines/ab.json "$root"/machines/awkward-wmi.json \
        "$root"/machines/radios-two.json "$root"/tests/comparison/machines/locked-down.json
fi
for profile in "$@"; do
    machine=${profile##*/}
    machine=${machine%.json}
    rec=$reports/$machine.rec
    rm -rf "${WINEPREFIX:?}/drive_c/ProgramData/Vesk"
    VESK_RECORD="Z:$rec" wine "$reports/bin/library_answers.exe" "$profile" >"$reports/$machine.windows.json" </dev/null
    "$native/library_answers" "$rec" >"$reports/$machine.native.json" 2>"$reports/differences"
    if grep -v "the driver session could not be opened" "$reports/differences"; then
        echo "$machine: the native library asks for something else" >&2
        exit 1
    fi
done
"$native/compare_answers" "$reports"
