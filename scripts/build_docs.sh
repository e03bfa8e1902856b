#!/bin/sh
# Builds the HTML reference. A warning of Doxygen is an error, and so is an export without one of the labels that every
# comment of the header has.
set -eu

header=include/vesk_sondrel.h
awk '
    /^\/\*\*/ { block = "" }
    { block = block $0 }
    /^VESK_API / {
        match($0, /[A-Za-z0-9_]+\(/)
        name = substr($0, RSTART, RLENGTH - 1)
        for (i = split("Failure|Session: |Blocks: ", label, "|"); i > 0; --i) {
            if (index(block, label[i]) == 0) {
                print FILENAME ": " name " does not state: " label[i]
                lacking = 1
            }
        }
        if (index($0, "* out") && $0 !~ /GPNV/ && index(block, " out: ") == 0) {
            print FILENAME ": " name " does not state the size of its buffer"
            lacking = 1
        }
        block = ""
    }
    END { exit lacking }' "$header" >&2

mkdir -p build/docs
doxygen docs/reference/Doxyfile
[ ! -t 1 ] || echo "build/docs/html/index.html"
