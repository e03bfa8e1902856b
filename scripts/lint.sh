#!/bin/sh
# Static checks: format, shell scripts, and cppcheck and clang-tidy over the library with both its platforms and the
# tool. Tests and benchmarks are held to the compilers' warnings and to the sanitizers.
set -eu

echo "clang-format"
scripts/sources.sh | xargs clang-format --dry-run --Werror

echo "shellcheck"
git ls-files --cached --others --exclude-standard -- '*.sh' .ci/run | xargs shellcheck

echo "exports, header and reference"
python3 -B exports/generate.py --check
python3 -B exports/check_header.py
tests/kit/check_header.sh clang clang++
scripts/build_docs.sh

# It looks into no system header. What is passed over stands in .cppcheck-suppressions, each with its reason; a
# suppression that nothing needs any more is a finding too.
echo "cppcheck"
cppcheck -j "$(nproc)" --quiet --error-exitcode=1 --std=c++20 --language=c++ \
    --enable=warning,style,performance,portability,information \
    --suppressions-list=.cppcheck-suppressions -I . -I src -I include -I tools/sondrel src machine observer exports tools examples bench

# The C++ sources in the compile commands of one configuration whose paths go on from here as the pattern says.
sources_in() {
    sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' "build/$1/compile_commands.json" |
        grep -E "^$PWD/$2.*\.c(xx|pp)?\$" | sort -u
}

# clang-tidy reads several sources as one: most of its time goes into what they all include.
tidy() {
    build=$1
    shift
    xargs -P "$(nproc)" -n 1 clang-tidy -p "build/$build" --quiet --checks=-bugprone-suspicious-include \
        --header-filter="^$PWD/(src|machine|observer|exports|tools|examples)/.*\.(h|cpp)\$" "$@" 2>/dev/null
}

echo "clang-tidy"
cmake --preset tidy >build/tidy.log 2>&1 || { cat build/tidy.log >&2; exit 1; }
sources_in tidy '((build/tidy/)?(src|machine|observer|exports|tools|examples)/.*Unity/|(src|machine|observer|exports|tools|examples)/)' | tidy tidy

echo "clang-tidy for Windows"
cmake --preset windows >build/windows.log 2>&1 || { cat build/windows.log >&2; exit 1; }
headers=$(x86_64-w64-mingw32-g++-posix -print-file-name=include)/c++
sources_in windows src/platform/windows/ |
    tidy windows --extra-arg=--target=x86_64-w64-mingw32 \
        "--extra-arg=-isystem$headers" "--extra-arg=-isystem$headers/x86_64-w64-mingw32"
