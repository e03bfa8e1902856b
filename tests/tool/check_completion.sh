#!/bin/bash
# The completion script for bash completes export names after the commands that take one, and nothing elsewhere.
#
#   tests/tool/check_completion.sh SCRIPT
set -eu

# shellcheck source=/dev/null
. "$1"

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
expect "$(completed sondrel list | wc -w)" 0
expect "$(completed sondrel list '' | wc -w)" "$(grep -c '^EXPORT(' "$(dirname "$0")/../../exports/generated/export_names.inc")"
expect "$(completed sondrel record GetIoDll)" GetIoDllVersion
expect "$(completed sondrel report RF_)" ""
