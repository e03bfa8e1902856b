#!/bin/sh
# Puts the finished kits into one directory, with the list of their checksums.
#
#   packaging/collect_kits.sh DIRECTORY ARCHIVE...
set -eu

if [ $# -lt 2 ]; then
    echo "usage: collect_kits.sh DIRECTORY ARCHIVE..." >&2
    exit 64
fi
directory=$1
shift
rm -rf "$directory"
mkdir -p "$directory"
cp "$@" "$directory"
cd "$directory"
sha256sum -- * >SHA256SUMS.new
mv SHA256SUMS.new SHA256SUMS
cat SHA256SUMS
