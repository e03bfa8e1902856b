#!/bin/sh
# Static checks: format, shell scripts, and cppcheck and clang-tidy over the library with both its platforms and the
# tool. Tests and benchmarks are held to the compilers' warnings and to the sanitizers.
set -eu

echo "clang-format"
scripts/sources.sh | xargs clang-format --dry-run --Werror

echo "shellcheck"
git ls-files --cached --others --exclude-standard -- '*.sh' .ci/run | xargs shellcheck

echo "header and reference"
tests/kit/check_header.sh clang clang++
scripts/build_docs.sh

# It looks into no system header. What is passed over stands in .cppcheck-suppressions, each with its reason; a
# suppression that nothing needs any more is a finding too.
echo "cppcheck"
cppcheck -j "$(nproc)" --quiet --error-exitcode=1 --std=c++20 --language=c++ \
    --enable=warning,style,performance,portability,information \
    --suppressions-list=.cppcheck-suppressions -I src -I include src tools examples bench

# The compile commands of one build that name a file below the given directories; generated sources are not ours to
# check.
compiled_from() {
    sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' "build/$1/compile_commands.json" | grep -v /build/ |
        grep -E "^$PWD/($2)/" | sort -u
}

echo "clang-tidy"
scripts/build.sh native
compiled_from native 'src|tools|examples' |
    xargs -P "$(nproc)" -n 1 clang-tidy -p build/native --quiet 2>/dev/null

echo "clang-tidy for Windows"
cmake --preset windows >build/windows.log 2>&1 || { cat build/windows.log >&2; exit 1; }
headers=$(x86_64-w64-mingw32-g++-posix -print-file-name=include)/c++
compiled_from windows 'src/platform/windows' |
    xargs -P "$(nproc)" -n 1 clang-tidy -p build/windows --quiet --extra-arg=--target=x86_64-w64-mingw32 \
        "--extra-arg=-isystem$headers" "--extra-arg=-isystem$headers/x86_64-w64-mingw32" 2>/dev/null
