#!/bin/sh
# The Python package and its examples are typed throughout, for the oldest Python that it supports and for this one. The
# types are those that a host sees: a planted misuse of each kind is reported.
#
#   tests/bindings/check_python_types.sh CACHE_DIRECTORY
set -eu

cache=$1
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
MYPYPATH=$root/bindings/python/src
export MYPYPATH

for version in 3.9 3.11; do
    mypy --strict --python-version "$version" --cache-dir "$cache" \
        "$MYPYPATH/vesk_sondrel" "$here/python/typed_use.py" "$root"/examples/python/*.py
done
