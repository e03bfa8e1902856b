#!/bin/sh
# The C++ header compiles alone in both standards, with exceptions and without.
#
#   tests/bindings/check_cpp_header.sh CXX [FLAG...]
set -eu

if [ $# -lt 1 ]; then
    echo "usage: check_cpp_header.sh CXX [FLAG...]" >&2
    exit 64
fi
cxx=$1
shift
here=$(cd "$(dirname "$0")" && pwd)
include=$here/../../include

# The readings are templates in part: a visitor of all of them makes the compiler look at each.
source='#include <vesk_sondrel.hpp>
int main() {
    std::string problem;
    const auto library = vesk::Library::load(vesk::detail::DefaultPath, problem);
    int values = 0;
    if (library) {
        const auto count = [&](const vesk::ReadingInfo&, const auto& result) { values += result ? 1 : 0; };
        vesk::for_each_reading(*library, count);
        const auto session = library->open_session();
        values += session && session->processor().cpuid(0) ? 1 : 0;
        values += session && session->features().set_quiet_fan(1) ? 1 : 0;
        values += session && session->firmware_variables().set_random_uuid({}) ? 1 : 0;
    }
    return values;
}'
for options in "-std=c++17 -fno-exceptions" -std=c++20; do
    # shellcheck disable=SC2086 # word splitting is meant
    printf '%s\n' "$source" | "$cxx" $options "$@" -x c++ -fsyntax-only \
        -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror "-I$include" -
done
