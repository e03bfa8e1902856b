#!/bin/sh
# Compiles header, core and Windows back end as Visual C++ reads them: clang for its ABI and in its mode, each file alone,
# warnings as errors. scripts/visual_cpp/ says what takes the place of its headers.
#
# Prints how many files compile, and the first error of each that does not. Fails where there are fewer than recorded.
set -eu
cd "$(dirname "$0")/.."

recorded=76

cxx=x86_64-w64-mingw32-g++-win32
library=$($cxx -print-file-name=include)/c++
windows=$(dirname "$($cxx -print-file-name=libkernel32.a)")/../include

work=$(mktemp -d "${TMPDIR:-/tmp}/visual_cpp.XXXXXX")
trap 'rm -rf "$work"' EXIT
trap 'exit 130' HUP INT TERM

# The project's own options for Windows, as CMake gives them to Visual C++ or to a compiler with the names of GCC's.
cat >"$work/options" <<OPTIONS
--target=x86_64-pc-windows-msvc -fms-compatibility-version=19.38 -std=c++20 -fsyntax-only
-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -ferror-limit=1
-DVESK_STRING_LAYOUT=VESK_STRING_LAYOUT_SAME_COMPILER
-D_WIN32_WINNT=0x0601 -DWINVER=0x0601 -DUNICODE -D_UNICODE -DWIN32_LEAN_AND_MEAN -DNOMINMAX
-nostdlibinc -isystem scripts/visual_cpp -isystem "$library" -isystem "$library/x86_64-w64-mingw32" -isystem "$windows"
-D__STRICT_ANSI__ -include scripts/visual_cpp/before_all.h -I. -Isrc -Iinclude -x c++
OPTIONS

cat >"$work/compile" <<'COMPILE'
#!/bin/sh
printf '#include "%s"\n' "$2" | clang++ "@$1/options" - 2>"$1/errors.$$" && exit 0
echo "$2: $(sed -n 's/.*error: //p' "$1/errors.$$" | head -n 1)" >>"$1/left_out"
COMPILE
chmod +x "$work/compile"

git ls-files --cached --others --exclude-standard -- include/vesk_sondrel.h 'src/*.cpp' >"$work/files"
: >"$work/left_out"
xargs -P "$(nproc)" -I FILE "$work/compile" "$work" FILE <"$work/files"

sort "$work/left_out"
all=$(wc -l <"$work/files")
compiling=$((all - $(wc -l <"$work/left_out")))
echo "$compiling of $all files compile as Visual C++ reads them"
if [ "$compiling" -lt "$recorded" ]; then
    echo "check_visual_cpp.sh: $recorded did before" >&2
    exit 1
fi
