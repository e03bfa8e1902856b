// The system's list of network adapters.
#pragma once

#include "platform/types.h"

#include <vector>

namespace platform {

namespace error {
inline constexpr SystemError BufferOverflow = 111;
} // namespace error

inline constexpr std::uint32_t AdapterTypeWireless = 71; // IF_TYPE_IEEE80211

/// The fields of IP_ADAPTER_INFO that are used.
struct NetworkAdapter {
    std::uint32_t index = 0;
    std::uint32_t type = 0;
};

/// GetAdaptersInfo with a zeroed buffer of `size` bytes. `error::BufferOverflow` means that the list is larger;
/// `size` is the needed size then. A record outside the buffer ends the list.
SystemError GetAdaptersInfo(std::uint32_t& size, std::vector<NetworkAdapter>& adapters);

} // namespace platform
