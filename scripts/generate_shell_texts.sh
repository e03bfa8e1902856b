#!/bin/sh
# Writes completion for bash, zsh and PowerShell and the manual page, as the tool prints them. A test compares.
#
#   scripts/generate_shell_texts.sh [TOOL] [DIRECTORY]
set -eu
cd "$(dirname "$0")/.."
tool=${1:-build/native/bin/sondrel}
directory=${2:-tools/sondrel/generated}
"$tool" completion bash >"$directory/sondrel.bash"
"$tool" completion zsh >"$directory/_sondrel"
"$tool" completion powershell >"$directory/sondrel.ps1"
"$tool" completion man >"$directory/sondrel.1"
