#!/bin/sh
# The report of sondrel.exe with the real DLL, in a Windows that has a machine's devices.
#
#   tests/windows/run_report.sh build/windows                             of the default machine
#   tests/windows/run_report.sh build/windows machines/other.json         of another one: a name or a profile
#   tests/windows/run_report.sh build/windows default --trace             with options for sondrel.exe
set -eu

here=$(cd "$(dirname "$0")" && pwd)
if [ $# -lt 1 ]; then
    echo "usage: run_report.sh BUILD_DIRECTORY [MACHINE [OPTION...]]" >&2
    exit 64
fi
build=$1
machine=${2:-default}
[ $# -lt 2 ] || shift
shift
exec "$here/run_under_wine.sh" "$build" wine "$build/bin/with_machine_devices.exe" "$machine" sondrel.exe "$@" report
