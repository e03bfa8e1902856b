// The event log.
#pragma once

#include "platform/support/owned.h"
#include "platform/types.h"

#include <array>

namespace platform {

enum class EventSource : std::uintptr_t { None = 0 };

/// RegisterEventSourceW on the local machine. `EventSource::None` on failure.
EventSource RegisterEventSourceW(const char16_t* sourceName);

/// ReportEventW with no user id and no raw data.
bool ReportEventW(EventSource source, std::uint16_t type, std::uint16_t category, std::uint32_t eventId,
                  const std::array<const char16_t*, 2>& insertionStrings);

void DeregisterEventSource(EventSource source);

using OwnedEventSource = Owned<EventSource, DeregisterEventSource, EventSource::None>;

} // namespace platform
