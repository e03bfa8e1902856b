#!/bin/sh
# Installs the Debian packages that a job needs and that are missing.
#
#   scripts/bootstrap.sh report|native|windows|windows-vc|bindings|fuzz|lint...
#
# Root uses apt-get; other users sudo, if it works without a password; otherwise the script prints the command to type
# and ends with status 1. If nothing is missing it prints nothing.
set -eu

packages_of() {
    case $1 in
    report) # library, simulated machine and tool
        echo "g++ make cmake ninja-build libsqlite3-dev libexpat1-dev zlib1g-dev nlohmann-json3-dev" \
            "libcli11-dev"
        ;;
    native) # with tests and benchmarks
        packages_of report
        echo "libvalijson-dev libgtest-dev libgmock-dev libbenchmark-dev pkgconf python3" \
            "chromium-headless-shell fonts-dejavu-core prometheus prometheus-node-exporter"
        ;;
    windows)
        echo "g++ make cmake ninja-build nlohmann-json3-dev libcli11-dev" \
            "g++-mingw-w64-x86-64-win32 libz-mingw-w64-dev googletest wine wine64 pkgconf"
        ;;
    windows-vc)
        echo "clang lld llvm"
        ;;
    bindings) # their tests, and the wheel of a kit
        echo "python3 python3-setuptools python3-wheel python3-venv python3-pytest mypy mono-mcs mono-runtime"
        ;;
    fuzz)
        echo "clang libclang-rt-dev cmake ninja-build libsqlite3-dev libexpat1-dev nlohmann-json3-dev" \
            "libcli11-dev"
        ;;
    lint)
        echo "clang clang-format clang-tidy cppcheck shellcheck doxygen python3 unicode-data"
        ;;
    *)
        echo "bootstrap: unknown job '$1'; expected report, native, windows, windows-vc, bindings, fuzz or lint" >&2
        exit 2
        ;;
    esac
}

is_installed() {
    status=$(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null || true)
    [ "$status" = installed ]
}

missing=
for job in "$@"; do
    for package in $(packages_of "$job"); do
        case " $missing " in *" $package "*) continue ;; esac
        is_installed "$package" || missing="$missing $package"
    done
done
[ -n "$missing" ] || exit 0

command -v apt-get >/dev/null || {
    echo "bootstrap: no apt-get here; what is needed, by Debian's names:$missing" >&2
    exit 1
}

as_root=
if [ "$(id -u)" -ne 0 ]; then
    if command -v sudo >/dev/null && sudo -n true 2>/dev/null; then
        as_root="sudo -n"
    else
        echo "bootstrap: packages are missing; install them with" >&2
        echo "  sudo apt-get install --no-install-recommends$missing" >&2
        exit 1
    fi
fi

echo "bootstrap: installing$missing"
# shellcheck disable=SC2086 # word splitting is meant in both
{
    $as_root apt-get update -qq
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing
}
