#!/bin/sh
# Compiles the C# binding with its documentation, its tests and its examples, and runs them: the tests on the double, the
# examples on simulated machines.
#
#   tests/bindings/csharp/run.sh MCS MONO OUTPUT_DIRECTORY DOUBLE_DIRECTORY LIBRARY_DIRECTORY ANSWERS
set -eu

if [ $# -ne 6 ]; then
    echo "usage: run.sh MCS MONO OUTPUT_DIRECTORY DOUBLE_DIRECTORY LIBRARY_DIRECTORY ANSWERS" >&2
    exit 64
fi
mcs=$1
mono=$2
output=$3
double=$4
library=$5
answers=$6
here=$(cd "$(dirname "$0")" && pwd)
sources=$here/../../../bindings/csharp/VeskSondrel
examples=$here/../../../examples/csharp
mkdir -p "$output"

compile() {
    "$mcs" -langversion:7 -warnaserror -warn:4 -nologo -r:System.Core "$@"
}

# As a host has it: a library with its documentation, whose XML the compiler checks.
compile -target:library -doc:"$output/VeskSondrel.xml" -out:"$output/VeskSondrel.dll" "$sources"/*.cs

# The tests see what is internal.
compile -out:"$output/Tests.exe" "$here/Tests.cs" "$sources"/*.cs
LD_LIBRARY_PATH=$double "$mono" "$output/Tests.exe" "$answers"

# An example says what it has read, or why not.
expect() {
    wanted=$1
    shift
    answer=$(cd "$output" && "$mono" "$@" 2>&1) || true
    case $answer in
    *"$wanted"*) ;;
    *)
        echo "run.sh: $* said: $answer"
        echo "run.sh: expected: $wanted"
        exit 1
        ;;
    esac
}

for example in "$examples"/*.cs; do
    name=$(basename "$example" .cs)
    compile -r:"$output/VeskSondrel.dll" -out:"$output/$name.exe" "$example"
done
unset LD_LIBRARY_PATH
expect "cpu 53 °C, fans 2913 3071 2455 0 rpm" Watch.exe "$library/libVeskSondrel64.so" default 2
expect '"CpuTemperature": {"state": "Ok", "value": 53, "unit": "°C"}' Report.exe "$library/libVeskSondrel64.so" default
expect '"HardDiskModels": {"state": "Absent", "meaning": "no such disk, or the WMI query failed"}' \
    Report.exe "$library/libVeskSondrel64.so" default
expect "firmware GL" ChooseMachine.exe "$library/libVeskSondrel64.so" gl
expect "firmware KL" ChooseMachine.exe "$library/libVeskSondrel64.so" default
expect "2 passed, 0 failed" TestOnMachine.exe "$library/libVeskSondrel64.so"
expect "cannot open shared object file" Watch.exe "$output/nothing.so" default 1
echo "examples: as expected"
