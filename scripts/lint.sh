#!/bin/sh
# Static checks: format, shell scripts, layers, words, headers, and cppcheck and clang-tidy of the library with both its
# platforms, the machine, the observer and the tool. Tests and benchmarks are checked by the compilers' warnings and the
# sanitizers.
set -eu

echo "clang-format"
scripts/sources.sh | xargs clang-format --dry-run --Werror

echo "shellcheck"
git ls-files --cached --others --exclude-standard -- '*.sh' .ci/run | xargs shellcheck

echo "exports"
python3 -B exports/generate.py --check
python3 -B exports/check_header.py
python3 -B scripts/generate_bindings --check

echo "layers"
scripts/check_layers --self-test
scripts/check_layers

echo "plain English"
scripts/check_plain_english --self-test
scripts/check_plain_english

echo "lines of code"
scripts/count_lines.sh

echo "generated tables"
scripts/generate_column_width --check

echo "headers and sources, each alone"
scripts/check_headers.sh
scripts/check_compiled_alone --self-test
scripts/check_compiled_alone

echo "public header and reference"
tests/kit/check_header.sh clang clang++
tests/bindings/check_cpp_header.sh clang++
tests/bindings/check_cpp_header_msvc.sh clang++
scripts/build_docs.sh

echo "sources in the mode of Visual C++"
scripts/check_visual_cpp.sh

# It does not read system headers. .cppcheck-suppressions has the findings that are accepted, each with its reason; a
# suppression without a finding is an error too.
echo "cppcheck"
cppcheck -j "$(nproc)" --quiet --error-exitcode=1 --std=c++20 --language=c++ \
    --enable=warning,style,performance,portability,information \
    --suppressions-list=.cppcheck-suppressions -I . -I src -I include -I tools/sondrel \
    unicode src machine observer exports tools examples bench

# The C++ sources in the compile commands of one configuration whose paths match the pattern.
sources_in() {
    sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' "build/$1/compile_commands.json" |
        grep -E "^$PWD/$2.*\.c(xx|pp)?\$" | sort -u
}

# BUILD OPTION... <LIST: one source a line. Several sources are read as one: most of the time is spent in what they all
# include. Standard error has a count of warnings for each source, so it is shown only when the source fails.
# shellcheck disable=SC2016 # the inner shell expands
tidy() {
    build=$1
    shift
    xargs -P "$(nproc)" -n 1 sh -c '
        errors=$(mktemp)
        status=0
        clang-tidy "$@" 2>"$errors" || status=1
        [ "$status" -eq 0 ] || cat "$errors" >&2
        rm -f "$errors"
        exit "$status"' \
        sh -p "build/$build" --quiet --checks=-bugprone-suspicious-include \
        --header-filter="^$PWD/(unicode|src|machine|observer|exports|tools|examples)/.*\.(h|cpp)\$" "$@"
}

echo "clang-tidy"
cmake --preset tidy >build/tidy.log 2>&1 || { cat build/tidy.log >&2; exit 1; }
sources_in tidy '((build/tidy/)?(src|machine|observer|exports|tools|examples)/.*Unity/|(src|machine|observer|exports|tools|examples)/)' | tidy tidy

echo "clang-tidy for Windows"
headers=$(x86_64-w64-mingw32-g++-win32 -print-file-name=include)/c++
tidy_for_windows() {
    cmake --preset "$1" >"build/$1.log" 2>&1 || { cat "build/$1.log" >&2; exit 1; }
    sources_in "$1" "$2" |
        tidy "$1" --extra-arg=--target=x86_64-w64-mingw32 --extra-arg=-Wno-unknown-warning-option \
            "--extra-arg=-isystem$headers" "--extra-arg=-isystem$headers/x86_64-w64-mingw32"
}
tidy_for_windows tidy-windows '(build/tidy-windows/src/platform/windows/CMakeFiles/(platform_windows|VeskSondrel64Observed)\.dir/Unity/|src/platform/windows/)'
tidy_for_windows windows-vc src/platform/windows/exports/
