#!/bin/sh
# The tool with the observed DLL: a recording as a machine, the trace of a machine's devices, and the script for the field.
# Runs within run_under_wine.sh.
#
#   run_field.sh WINDOWS_BUILD_DIRECTORY NATIVE_BUILD_DIRECTORY
set -eu

root=$(cd "$(dirname "$0")/../../.." && pwd)
windows=$1/bin
native=$2/bin
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    echo "run_field.sh: $*" >&2
    exit 1
}

# A recording answers here as it does natively, and Windows is not asked.
rec=$root/recordings/default.rec
"$native/sondrel" --machine "$rec" report --json >"$work/native.json" 2>"$work/native.err"
wine "$windows/sondrel.exe" --machine "Z:$rec" report --json >"$work/windows.json" 2>"$work/windows.err" </dev/null
python3 - "$work/native.json" "$work/windows.json" <<'REPORT' || fail "a recording answers otherwise"
import json, sys
native, windows = (json.load(open(file, encoding="utf-8"))["readings"] for file in sys.argv[1:])
different = [(name, native[name], windows.get(name)) for name in native if native[name] != windows.get(name)]
print(*different, sep="\n", file=sys.stderr)
sys.exit(len(native) != 114 or len(windows) != 114 or bool(different))
REPORT
wine "$windows/sondrel.exe" --machine "Z:$rec" call Thermal_Read_Fan >"$work/windows" </dev/null
"$native/sondrel" --machine "$rec" call Thermal_Read_Fan | tr -d '\r' >"$work/native"
tr -d '\r' <"$work/windows" | cmp - "$work/native"

# The boundary calls of the real DLL on a machine's devices, as they are on the simulated one; without times, and without
# the calls for lines of the log, which the machine shows as such. The registry is Wine's: nothing is stored there yet.
python3 - "$root/machines/default.json" "$work/devices.json" <<'DEVICES'
import json, sys
profile = json.load(open(sys.argv[1], encoding="utf-8"))
del profile["registry"]
json.dump(profile, open(sys.argv[2], "w", encoding="utf-8"))
DEVICES
calls() {
    tr -d '\r' | sed -n 's/^.*  \(\(call \|EC   \)  .*\)$/\1/p' | grep -v 'Event\|GetCurrentProcessId'
}
for name in Thermal_Read_Fan Thermal_Read_Cpu_Temperature Thermal_Read_ACFET_Temperature Thermal_Read_CpuPackagePower \
    Thermal_Read_CpuDptf_PowerLimit1 EC_ReadEcFwRev EC_ReadEcChipName GetDriverVersion GetRefCount \
    Battery_Read_CellVoltage Battery_Read_ManufactureName System_Read_TabletMode \
    GetEEPROM_Data GetSENSOR_WMI_Data; do
    "$native/sondrel" --machine "$work/devices.json" --store :memory: trace "$name" | calls >"$work/native"
    wine "$windows/with_machine_devices.exe" default sondrel.exe trace "$name" \
        --library "Z:$windows/observed/VeskSondrel64.dll" </dev/null | calls >"$work/windows"
    [ -s "$work/native" ] || fail "$name makes no calls: nothing is compared"
    diff "$work/native" "$work/windows" >&2 || fail "$name: the traces differ"
done

# What is packed can be a machine anywhere. Wine has neither elevation nor a task scheduler, which has to be said.
mkdir -p "$work/kit/bin/observed" "$work/kit/field"
cp "$windows/sondrel.exe" "$windows/VeskSondrel64.dll" "$work/kit/bin"
cp "$windows/observed/VeskSondrel64.dll" "$work/kit/bin/observed"
cp "$root/field/collect.cmd" "$work/kit/field"
there=Z:$(printf %s "$work" | sed 's,/,\\,g') # what cmd takes for no option
wine cmd /c "$there\\kit\\field\\collect.cmd" "$there\\packed.rec.gz" GetIoDllVersion System_GetCountryCode_ISO2 \
    </dev/null >"$work/said" 2>&1 || fail "collect.cmd: $(cat "$work/said")"
grep -q "not recorded: system" "$work/said" || fail "collect.cmd is silent about what it left out: $(cat "$work/said")"
[ "$("$native/sondrel" --machine "$work/packed.rec.gz" call GetIoDllVersion)" = 65537 ] || fail "it was not recorded"
"$native/sondrel" replay --check "$work/packed.rec.gz"
[ -s "$work/packed.rec.gz.txt" ] || fail "there is no report"
wine cmd /c "$there\\kit\\field\\collect.cmd" "$there\\packed.rec.gz" </dev/null >"$work/said" 2>&1 &&
    fail "an existing file is replaced"
grep -q exists "$work/said"
