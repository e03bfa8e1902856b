#!/bin/sh
# Runs a command in a separate Wine prefix: a fresh Wine prefix in the build tree, with one resident process that
# keeps it up while the command runs, and ended whatever happens.
#
#   tests/windows/run_under_wine.sh build/windows ctest --test-dir build/windows --output-on-failure
#   tests/windows/run_under_wine.sh build/windows wine build/windows/bin/sondrel.exe list
#
# The exit status is the command's. 69: there is no Wine; 70: it did not come up.
set -u

fail() {
    echo "run_under_wine.sh: $2" >&2
    exit "$1"
}

[ $# -ge 2 ] || fail 64 "usage: run_under_wine.sh BUILD_DIRECTORY COMMAND [ARGUMENT...]"
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" 2>/dev/null && pwd) || fail 66 "there is no directory $1: cmake --preset windows makes it"
shift
for program in wine wineserver flock; do
    command -v "$program" >/dev/null || fail 69 "$program is missing: install the packages wine and util-linux"
done
holder=$build/bin/keep_wine_running.exe
[ -f "$holder" ] || fail 66 "$holder is missing: cmake --build --preset windows builds it"

# What the prefix needs to be free of the user's own Wine, of a display and of dialogues: a crash ends the
# program instead of starting a debugger that waits for input.
export WINEPREFIX="$build/wine" WINEARCH=win64 WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe,winedbg.exe=d"
export ALSA_CONFIG_PATH="$here/silent_sound.conf"
export VESK_TEST_WINE="$WINEPREFIX"
unset DISPLAY WAYLAND_DISPLAY WINELOADER WINESERVER

# One command at a time: the commands share the prefix' registry and devices.
exec 9>"$build/wine.lock" || fail 73 "cannot write to $build"
flock -n 9 || {
    echo "run_under_wine.sh: waiting for another command in $WINEPREFIX" >&2
    flock 9
}

running=
end_wine() {
    trap '' HUP INT TERM
    [ -z "$running" ] || kill "$running" 2>/dev/null
    wineserver -k 9>&- 2>/dev/null
    wineserver -w 9>&- 2>/dev/null
}
trap end_wine EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# In the background and waited for, so that a signal to this script takes effect immediately.
run() {
    "$@" 9>&- &
    running=$!
    wait "$running"
    status=$?
    running=
    return "$status"
}

quietly() {
    run "$@" </dev/null >>"$log" 2>&1
}

log=$build/wine.log
marker=$WINEPREFIX/wine-is-ready

make_prefix() {
    echo "run_under_wine.sh: making $WINEPREFIX (about 20 seconds, once)" >&2
    : >"$log"
    quietly wine wineboot -i &&
        # Windows of a desktop without a display, and a version that has everything the library looks for.
        quietly wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f &&
        quietly wine winecfg -v win10 &&
        # What was set counts from the next start.
        quietly wineserver -k && quietly wineserver -w && : >"$marker"
}

# A prefix counts when its marker exists: one whose creation was interrupted is created again.
[ -f "$marker" ] || rm -rf "$WINEPREFIX"
# The personal folders of the prefix lead into HOME: the user's own are to stay untouched.
export HOME="$WINEPREFIX/home"
mkdir -p "$HOME" || fail 73 "cannot write to $build"
[ -f "$marker" ] || make_prefix || fail 70 "the prefix could not be made: see $log"

# The services of a Windows that is started by a test would keep the test's output open until they end, which
# ctest waits for: over two seconds for each test. With the holder they are up before, and hold nothing of it.
up=$WINEPREFIX/drive_c/holder-is-up
rm -f "$up"
wine "$holder" 'C:\holder-is-up' </dev/null >>"$log" 2>&1 9>&- &
tries=0
until [ -f "$up" ]; do
    tries=$((tries + 1))
    [ "$tries" -le 600 ] || fail 70 "Wine does not come up: see $log"
    sleep 0.1
done

run "$@"
