#!/bin/sh
# What a host records is what it gets again: every machine of machines/, and the comparison's own, read by one program from
# the library and from its recording.
#
#   check_recordings.sh ROOT BUILD_DIRECTORY
set -eu

root=$1
bin=$2/bin
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    echo "$*" >&2
    exit 1
}

count=0
for profile in "$root"/machines/*.json "$root"/tests/comparison/machines/*.json; do
    name=${profile##*/}
    name=${name%.json}
    rec=$work/$name.rec
    VESK_RECORD=$rec "$bin/library_answers" "$profile" >"$work/recorded.json" 2>"$work/said"
    # Another machine is named: what it would answer must not be seen.
    VESK_MACHINE=$rec "$bin/library_answers" "$profile" >"$work/replayed.json" 2>"$work/differences"
    cmp "$work/recorded.json" "$work/replayed.json" || fail "$name: the replay answers otherwise"
    cmp "$work/said" "$work/differences" || fail "$name: $(cat "$work/differences")"
    "$bin/sondrel" replay --check "$rec" || fail "$name: its replay differs"
    "$bin/sondrel" redact "$rec" -o "$work/redacted.rec" || fail "$name: cannot be redacted"
    "$bin/sondrel" replay --check "$work/redacted.rec" || fail "$name: its redacted recording differs"
    rm "$work/redacted.rec"
    count=$((count + 1))
done
[ "$count" -ge 20 ] || fail "only $count machines were recorded"

# What was recorded of the real DLL is still what this library asks, and reads in the same way.
replayed=0
for rec in "$root"/recordings/*.rec; do
    "$bin/sondrel" replay --check "$rec" || fail "$rec: the library asks or answers otherwise"
    replayed=$((replayed + 1))
done
[ "$replayed" -ge 5 ] || fail "only $replayed recordings of $root/recordings were replayed"

# The answers come from the file, not from the machine that the host names.
for name in ar gl; do
    "$bin/sondrel" --machine "$name" --store :memory: call EC_ReadEcFwRev >"$work/$name"
done
cmp -s "$work/ar" "$work/gl" && fail "ar and gl are the same machine"
rm -f "$work/gl.rec"
"$bin/sondrel" --machine gl --store :memory: record -o "$work/gl.rec" EC_ReadEcFwRev WMIGetSN
VESK_MACHINE=$work/gl.rec "$bin/sondrel" call EC_ReadEcFwRev | cmp - "$work/gl"
VESK_MACHINE=gl VESK_STORE=:memory: "$bin/sondrel" call EC_ReadEcFwRev | cmp - "$work/gl"
for machine in gl gl.rec; do # the option wins
    VESK_MACHINE=$work/$machine "$bin/sondrel" --machine ar --store :memory: call EC_ReadEcFwRev | cmp - "$work/ar"
done
"$bin/sondrel" --machine "$work/gl.rec" call EC_ReadEcFwRev | cmp - "$work/gl"

# Smaller, and still a machine.
"$bin/sondrel" compress "$work/gl.rec"
[ "$(wc -c <"$work/gl.rec.gz")" -lt "$(($(wc -c <"$work/gl.rec") / 2))" ] || fail "it is not compressed"
"$bin/sondrel" --machine "$work/gl.rec.gz" call EC_ReadEcFwRev | cmp - "$work/gl"
"$bin/sondrel" diff "$work/gl.rec" "$work/gl.rec.gz"
"$bin/sondrel" expand "$work/gl.rec.gz" -o "$work/again.rec"
cmp "$work/gl.rec" "$work/again.rec"
VESK_MACHINE=$work/gl.rec.gz "$bin/example_host_c" 2>&1 | grep -q "sondrel expand" || fail "no way is named"
# The second reading finds the EC's identity in the registry, where the first one cached it.
for rec in ec registry; do
    VESK_RECORD=$work/$rec.rec "$bin/sondrel" --machine gl --store "$work/state" call EC_ReadEcFwRev >"$work/$rec"
done
status=0
"$bin/sondrel" diff "$work/ec.rec" "$work/registry.rec" >"$work/differences" || status=$?
[ "$status" = 1 ] || fail "two recordings with another identity are the same"
grep -q "identity came from the EC -> from the registry" "$work/differences" ||
    fail "the cached identity explains nothing: $(cat "$work/differences")"
grep -q '"identity":"ec"' "$work/gl.rec" || fail "where the EC's identity came from is not in the header"
echo "$count machines recorded and replayed"
