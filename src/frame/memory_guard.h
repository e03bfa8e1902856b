// Running out of memory is a failure like any other: nothing is raised across an export.
#pragma once

#include <exception>

namespace sondrel {

/// What `make` gives, or `failure` where there is no memory for it.
template <class Result, class Make>
Result OrWithoutMemory(Result failure, Make make) noexcept {
    try {
        return make();
    } catch (const std::exception&) {
        return failure;
    }
}

} // namespace sondrel
