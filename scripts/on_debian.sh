#!/bin/sh
# Runs a command in a copy of this tree on a fresh Debian of another release: the check before a release of this
# project. Needs root, debootstrap and about 6 GB; the first run of a release makes its system, which is used again.
#
#   scripts/on_debian.sh 13 'make run && make test'
#
# The copy has what git lists, without build/. It is new for each run; the packages stay installed. ON_DEBIAN is the
# directory for the systems, build/debian by default.
set -eu

if [ $# -ne 2 ]; then
    echo "usage: on_debian.sh RELEASE COMMAND" >&2
    exit 64
fi
case $1 in
12) suite=bookworm ;;
13) suite=trixie ;;
*)
    echo "on_debian.sh: unknown release '$1'; expected 12 or 13" >&2
    exit 64
    ;;
esac
command=$2
root=$(cd "$(dirname "$0")/.." && pwd)
systems=${ON_DEBIAN:-$root/build/debian}
system=$systems/$suite

fail() {
    echo "on_debian.sh: $1" >&2
    exit "$2"
}

[ "$(id -u)" -eq 0 ] || fail "making and entering a system needs root" 77
command -v debootstrap >/dev/null || fail "debootstrap is missing: install the package debootstrap" 69

# A system counts when its making has ended.
if [ ! -f "$system/.made" ]; then
    rm -rf "$system"
    mkdir -p "$systems"
    debootstrap --variant=minbase --include=ca-certificates,git,make,g++,python3 "$suite" "$system" ||
        fail "the system could not be made" 70
    # Services of packages are not started in it.
    printf '#!/bin/sh\nexit 101\n' >"$system/usr/sbin/policy-rc.d"
    chmod +x "$system/usr/sbin/policy-rc.d"
    touch "$system/.made"
fi

mounted=""
unmount() {
    for place in $mounted; do
        umount "$system/$place" || umount --lazy "$system/$place" || :
    done
    mounted=""
}
trap unmount EXIT
trap 'exit 130' INT TERM
mount_in() {
    mount "$@"
    mounted="$place $mounted"
}
for place in proc dev dev/pts dev/shm; do
    case $place in
    proc) mount_in -t proc proc "$system/proc" ;;
    dev/shm) mount_in -t tmpfs tmpfs "$system/dev/shm" ;;
    *) mount_in --bind "/$place" "$system/$place" ;;
    esac
done

cp /etc/resolv.conf "$system/etc/resolv.conf"
rm -rf "$system/tree"
mkdir "$system/tree"
(cd "$root" && git ls-files --cached --others --exclude-standard -z |
    tar --null --files-from=- --create) | tar --extract -C "$system/tree"

chroot "$system" env -i PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LANG=C.UTF-8 \
    TERM="${TERM:-dumb}" DEBIAN_FRONTEND=noninteractive sh -eu -c "
        git config --global --add safe.directory /tree
        cd /tree
        git init --quiet
        git add --all
        apt-get update --quiet=2
        $command"
