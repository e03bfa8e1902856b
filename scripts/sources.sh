#!/bin/sh
# Lists the C and C++ sources of the tree, one a line.
set -eu

git ls-files --cached --others --exclude-standard -- '*.h' '*.hpp' '*.c' '*.cpp'
