// ETW for a trace provider.
#pragma once

#include "platform/types.h"

#include <array>
#include <span>

namespace platform {

/// Called by ETW when a consumer attaches to the provider or detaches; on any thread, also during
/// EventRegister. It is the only callback of the boundary: ETW has no other way to report this.
using TraceEnableCallback = void (*)(void* context, std::uint32_t controlCode, std::uint8_t level,
                                     std::uint64_t matchAnyKeyword, std::uint64_t matchAllKeyword);

struct EventDescriptor {
    std::uint16_t id;
    std::uint8_t version;
    std::uint8_t channel;
    std::uint8_t level;
    std::uint8_t opcode;
    std::uint16_t task;
    std::uint64_t keyword;
};

/// One data descriptor of an event: the bytes and their EVENT_DATA_DESCRIPTOR_TYPE.
struct EventData {
    std::span<const std::byte> bytes;
    std::uint8_t type;
};

inline constexpr std::uint8_t EventDataPlain = 0;
inline constexpr std::uint8_t EventDataEventMetadata = 1;
inline constexpr std::uint8_t EventDataProviderMetadata = 2;

/// The library stays loaded from then on: a registration that cannot keep it loaded fails.
SystemError EventRegister(const Guid& provider, TraceEnableCallback callback, void* context,
                          std::uint64_t& registration);

SystemError EventSetInformation(std::uint64_t registration, std::uint32_t informationClass,
                                std::span<const std::byte> information);

/// EventWriteTransfer with no activity ids. TraceLogging events always carry three data descriptors.
SystemError EventWriteTransfer(std::uint64_t registration, const EventDescriptor& descriptor,
                               const std::array<EventData, 3>& data);

} // namespace platform
