#!/bin/sh
# Static checks: format, shell scripts, and clang-tidy over the library, the simulated machine and the tool. Tests and
# benchmarks are held to the compilers' warnings and to the sanitizers.
set -eu

echo "clang-format"
scripts/sources.sh | xargs clang-format --dry-run --Werror

echo "shellcheck"
git ls-files --cached --others --exclude-standard -- '*.sh' .ci/run | xargs shellcheck

echo "header and reference"
tests/kit/check_header.sh clang clang++
scripts/build_docs.sh

echo "clang-tidy"
scripts/build.sh native
# The build writes what it compiles into compile_commands.json; generated sources are not ours to check.
sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' build/native/compile_commands.json | grep -v /build/ |
    grep -E "^$PWD/(src|tools|examples)/" | sort -u |
    xargs -P "$(nproc)" -n 1 clang-tidy -p build/native --quiet 2>/dev/null
