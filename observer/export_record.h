// One call of an export by the host, as data.
#pragma once

#include "observer/value.h"

#include <chrono>
#include <cstdint>

namespace observer {

struct ExportRecord {
    const char* name = nullptr;
    std::uint64_t number = 0; // in its process, from 1
    std::uint32_t thread = 0;
    std::chrono::nanoseconds start{0};
    std::chrono::nanoseconds duration{0};
    Structure arguments;     // what goes in, and buffers that are null
    Value result;            // nothing where it returns none
    Structure buffers;       // what was written; nothing where it was not
    bool incomplete = false; // there was no memory for all of it
};

} // namespace observer
