#!/bin/sh
# Builds the HTML reference. A warning of Doxygen is an error.
set -eu

mkdir -p build/docs
doxygen docs/reference/Doxyfile
[ ! -t 1 ] || echo "build/docs/html/index.html"
