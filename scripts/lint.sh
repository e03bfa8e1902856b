#!/bin/sh
# Static checks: format, clang-tidy over every file that the native build compiles, shell scripts.
set -eu

echo "clang-format"
scripts/sources.sh | xargs clang-format --dry-run --Werror

echo "shellcheck"
git ls-files --cached --others --exclude-standard -- '*.sh' .ci/run | xargs shellcheck

echo "clang-tidy"
scripts/build.sh native
# The build writes what it compiles into compile_commands.json; generated sources are not ours to check.
sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' build/native/compile_commands.json | grep -v /build/ | sort -u |
    xargs -P "$(nproc)" -n 1 clang-tidy -p build/native --quiet 2>build/clang-tidy.log || {
    cat build/clang-tidy.log >&2
    exit 1
}
