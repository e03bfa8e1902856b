// A machine's Wi-Fi: its service, its interfaces, and the access points in reach.
#pragma once

#include "machine/models/beacon.h"
#include "platform/types.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace machine {

class ProfileReader;

/// A server has no wireless services at all; a notebook may have them stopped.
enum class WifiService : std::uint8_t { Running, Stopped, Missing };

struct WifiConnection {
    std::string ssid;
    std::array<std::uint8_t, 6> bssid{};
    std::uint32_t phyType = 0;
};

struct AccessPoint {
    std::array<std::uint8_t, 6> bssid{};
    std::int32_t rssi = 0;
    Beacon beacon;
    std::optional<std::vector<std::byte>> rawElements; // what it sends in place of the beacon's elements
};

struct WifiInterface {
    std::u16string description;
    platform::Guid guid{};
    std::uint32_t state = 0;
    WifiConnection connection;
    std::optional<std::uint32_t> channel; // a card may not tell it
    std::vector<AccessPoint> accessPoints;
};

struct WifiProfile {
    WifiService service = WifiService::Running;
    std::vector<WifiInterface> interfaces;
};

WifiProfile ReadWifi(ProfileReader reader);

} // namespace machine
