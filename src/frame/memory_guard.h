// Running out of memory is a failure like any other: no exception leaves an export.
#pragma once

#include <exception>

namespace sondrel {

/// Returns what `make` returns, or `failure` when memory runs out.
template <class Result, class Make>
Result OnOutOfMemory(Result failure, Make make) noexcept {
    try {
        return make();
    } catch (const std::exception&) {
        return failure;
    }
}

} // namespace sondrel
