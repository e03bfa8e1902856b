#!/bin/sh
# sondrel.exe and a host with the real DLL: what differs from the native tool, which has the tests of everything else.
# Runs within run_under_wine.sh.
#
#   tests/windows/run_under_wine.sh build/windows tests/windows/check_tool.sh build/windows
set -eu

if [ $# -ne 1 ]; then
    echo "usage: check_tool.sh BUILD_DIRECTORY" >&2
    exit 64
fi
bin=$1/bin
export LC_ALL=C.UTF-8 # arguments beyond ASCII
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
trap 'exit 130' HUP INT TERM

fail() {
    echo "check_tool.sh: $1" >&2
    cat "$scratch/out" "$scratch/err" >&2
    exit 1
}

# Output goes to files: what the program starts of Wine's would keep a pipe open.
run() {
    expected=$1
    program=$2
    shift 2
    status=0
    wine "$bin/$program" "$@" </dev/null >"$scratch/out" 2>"$scratch/err" || status=$?
    [ "$status" = "$expected" ] || fail "$program $* ends with $status, not $expected"
}

says() {
    grep -qF -e "$2" "$scratch/$1" || fail "this is missing in $1: $2"
}

refuses() {
    problem=$1
    shift
    run 2 sondrel.exe "$@"
    says err "sondrel: $problem"
    [ ! -s "$scratch/out" ] || fail "$* prints something"
    [ "$(wc -l <"$scratch/err")" = 1 ] || fail "$* gives more than one line of error"
}

run 0 sondrel.exe report --json
python3 - "$scratch/out" <<'REPORT' || fail "the report is not that of a real machine"
import json, sys
report = json.load(open(sys.argv[1], encoding="utf-8"))
values = {name: row["value"] for name, row in report["readings"].items()}
whole = len(values) == 114 and not any(row["status"] == "faulty" for row in report["readings"].values())
sys.exit(not (whole and report["simulated"] is False and values["GetIoDllVersion"] == 65537))
REPORT

# The observed DLL shows what is asked of Windows; the usual one does not.
run 0 sondrel.exe trace --library "$bin/observed/VeskSondrel64.dll" System_Read_LocalTime
says out "  call   Time64 -> "
says out "2 boundary calls, 0 EC commands"
run 0 sondrel.exe trace --library "$bin/VeskSondrel64.dll" System_Read_LocalTime
says err "this library is not observed"

# Wine has neither the driver nor UEFI's variables.
run 1 sondrel.exe doctor
says out "CreateFileW \\\\.\\VESKHWIO failed with 2"
says out "  Driver device: absent"
says out "  App path: absent"
says out "  App path writable: not checked"

# The machine is the real one.
refuses "--trace" report --trace
says err "an ETW consumer of provider VeskWinDllLogger {C72E452E-6078-4AC3-82F2-C0282F99A573}"
refuses "--machine is for the simulated machine" report --machine default
refuses "--store is for the simulated machine" report --store :memory:
refuses "there is no library" list --library none.dll
refuses 'cannot load the library: C:\windows\win.ini' list --library 'C:\windows\win.ini'

# Names beyond any code page.
mkdir "$scratch/Ä 中😀"
cp "$bin/VeskSondrel64.dll" "$scratch/Ä 中😀/copy.dll"
run 0 sondrel.exe call GetIoDllVersion --library "Z:$scratch/Ä 中😀/copy.dll"
says out 65537
rm "$scratch/Ä 中😀/copy.dll"
run 2 sondrel.exe list --library "Z:$scratch/Ä 中😀/copy.dll"
says err 'Ä 中😀'

# The README's host finds the DLL next to it.
run 0 example_host.exe
says out "no driver session"
