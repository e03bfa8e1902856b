// Wi-Fi: the interfaces, the current connection, the access points in range.
//
// The WLAN API returns blocks of memory with lists, lengths and offsets. Here they are copied to plain values
// and released: what is missing or outside its block is left out. On a Windows without the API's library the
// result is the error of loading it.
#pragma once

#include "platform/support/owned.h"
#include "platform/types.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace platform {

enum class WlanClient : std::uintptr_t { None = 0 };

namespace wlan {
inline constexpr std::uint32_t ClientVersion = 2;          // Windows Vista and later
inline constexpr std::uint32_t StateConnected = 1;         // wlan_interface_state_connected
inline constexpr std::uint32_t CurrentConnection = 7;      // wlan_intf_opcode_current_connection
inline constexpr std::uint32_t ChannelNumber = 8;          // wlan_intf_opcode_channel_number
inline constexpr std::uint32_t InfrastructureNetworks = 1; // dot11_BSS_type_infrastructure
} // namespace wlan

using MacAddress = std::array<std::uint8_t, 6>;

/// DOT11_SSID. The bytes after `length` are undefined.
struct WlanSsid {
    std::uint32_t length = 0;
    std::array<std::uint8_t, 32> bytes{};
};

struct WlanInterface {
    Guid guid{};
    std::u16string description; // up to 256 characters
    std::uint32_t state = 0;
};

struct WlanConnection {
    WlanSsid ssid;
    MacAddress bssid{};
    std::uint32_t phyType = 0;
};

struct WlanBssEntry {
    WlanSsid ssid;
    MacAddress bssid{};
    std::int32_t rssi = 0;
    /// Empty if the entry's offset and size are outside the list.
    std::vector<std::byte> informationElements;
};

SystemError WlanOpenHandle(std::uint32_t clientVersion, WlanClient& client);

void WlanCloseHandle(WlanClient client);

/// On success a null list is an empty one.
SystemError WlanEnumInterfaces(WlanClient client, std::vector<WlanInterface>& interfaces);

/// WlanQueryInterface for `wlan::CurrentConnection`. On success without data, or with less than a connection,
/// `connection` is empty.
SystemError WlanQueryInterface(WlanClient client, const Guid& interfaceGuid, std::uint32_t opcode,
                               std::optional<WlanConnection>& connection);

/// WlanQueryInterface for `wlan::ChannelNumber` and other 32-bit numbers.
SystemError WlanQueryInterface(WlanClient client, const Guid& interfaceGuid, std::uint32_t opcode,
                               std::optional<std::uint32_t>& number);

/// WlanGetNetworkBssList for every SSID. On success a null list is an empty one; entries after the end of the
/// list's size are left out.
SystemError WlanGetNetworkBssList(WlanClient client, const Guid& interfaceGuid, std::uint32_t bssType,
                                  bool securityEnabled, std::vector<WlanBssEntry>& entries);

using OwnedWlanClient = Owned<WlanClient, WlanCloseHandle, WlanClient::None>;

} // namespace platform
