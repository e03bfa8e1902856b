// Every export of the library, called by its type.
#pragma once

#include "vesk_sondrel.h"

#include <type_traits>
#include <vector>

namespace test {

/// The exports that are called in one way.
template <class Function>
std::vector<Function*> ExportsOfType() {
    std::vector<Function*> found;
    const auto look = [&found](auto* candidate) {
        if constexpr (std::is_same_v<decltype(candidate), Function*>) {
            found.push_back(candidate);
        }
    };
#define EXPORT(name) look(name);
#include "exports/generated/export_names.inc"
#undef EXPORT
    return found;
}

} // namespace test
