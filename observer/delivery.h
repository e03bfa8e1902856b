// What the observer's parts ask of each other about sinks.
#pragma once

#include "observer/export_record.h"

#include <cstdint>

namespace observer {

bool HasSinks() noexcept;

void DeliverBegan(const ExportRecord& record);
void DeliverEnded(const ExportRecord& record);

/// Threads are numbered in the order in which they first call.
std::uint32_t NumberOfThread() noexcept;

} // namespace observer
