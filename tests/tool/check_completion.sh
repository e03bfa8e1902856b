#!/bin/bash
# The checked-in scripts and manual page are what the tool prints, and the script for bash completes commands, options and
# export names where they belong.
#
#   tests/tool/check_completion.sh TOOL
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
generated=$root/tools/sondrel/generated
made=$(mktemp -d)
trap 'rm -rf "$made"' EXIT
"$root/scripts/generate_shell_texts.sh" "$1" "$made"
diff -r "$generated" "$made" >&2 || {
    echo "check_completion.sh: run scripts/generate_shell_texts.sh" >&2
    exit 1
}

# shellcheck source=/dev/null
. "$generated/sondrel.bash"

# The completions of the last word of a command line, on one line.
completed() {
    COMP_WORDS=("$@")
    COMP_CWORD=$(($# - 1))
    _sondrel
    echo "${COMPREPLY[*]-}"
}

expect() {
    if [ "$1" != "$2" ]; then
        echo "check_completion.sh: completed \"$1\", expected \"$2\"" >&2
        exit 1
    fi
}

expect "$(completed sondrel call Thermal_Read_Cpu_)" Thermal_Read_Cpu_Temperature
expect "$(completed sondrel --machine ab watch RF_WiFi)" \
    "RF_WiFiIsConnected RF_WiFiCardName RF_WiFiRssi RF_WiFiChannel RF_WiFiMaxRate"
expect "$(completed sondrel list '' | wc -w)" "$(grep -c '^EXPORT(' "$root/exports/generated/export_names.inc")"
expect "$(completed sondrel record GetIoDll)" GetIoDllVersion
expect "$(completed sondrel report RF_)" ""
expect "$(completed sondrel mac)" machine
expect "$(completed sondrel machine sh)" show
expect "$(completed sondrel machine show RF_)" ""
expect "$(completed sondrel watch --c)" "--count --csv --colour --color"
