// What an export call and the boundary calls in it ask of the observer.
#pragma once

#include "observer/export_record.h"

#include <cstdint>

namespace observer {

bool HasSinks() noexcept;

void DeliverBegan(const ExportRecord& record);
void DeliverEnded(const ExportRecord& record);

/// Threads are numbered in the order in which they first call.
std::uint32_t NumberOfThread() noexcept;

/// What the thread allocates from here to the end of the scope is the observer's and not the core's.
class BelowBoundary {
public:
    BelowBoundary() noexcept;
    BelowBoundary(const BelowBoundary&) = delete;
    BelowBoundary& operator=(const BelowBoundary&) = delete;
    ~BelowBoundary();
};

} // namespace observer
