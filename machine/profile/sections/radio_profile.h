// The radios of a profile: the Wi-Fi service, its interfaces and the access points in reach; Bluetooth radios with
// the devices that each of them knows.
#pragma once

#include "platform/types.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace machine {

class ProfileReader;

/// A channel's width. The numbers are those of the VHT operation element, where 0 means both 20 and 40 MHz.
enum class VhtWidth : std::uint8_t { UpTo40, Mhz80, Mhz160, Mhz80Plus80 };

/// High throughput, 802.11n.
struct HtStation {
    bool forty = false; // 20/40 MHz channels, else 20 MHz only
    bool greenfield = false;
    bool shortGuard20 = false;
    bool shortGuard40 = false;
    std::uint32_t rates = 0; // one bit for each MCS it receives
};

/// Very high throughput, 802.11ac.
struct VhtStation {
    VhtWidth width = VhtWidth::Mhz80;
    bool ldpc = false;
    bool shortGuard80 = false;
    bool shortGuard160 = false;
    std::vector<std::uint8_t> highestMcs; // by stream: 7, 8 or 9; 0 for a stream it does not receive
};

/// High efficiency, 802.11ax.
struct HeStation {
    std::vector<std::uint8_t> highestMcs; // by stream: 7, 9 or 11
};

/// What an access point announces of itself.
struct Beacon {
    std::string ssid;
    std::uint8_t channel = 1;
    std::optional<HtStation> ht;
    std::optional<VhtStation> vht;
    std::optional<HeStation> he;
};

/// A server has no wireless services at all; a notebook may have them stopped.
enum class WifiService : std::uint8_t { Running, Stopped, Missing };

struct WifiConnection {
    std::string ssid;
    std::array<std::uint8_t, 6> bssid{};
    std::uint32_t phyType = 0;
};

struct AccessPoint {
    std::array<std::uint8_t, 6> bssid{};
    std::int32_t rssi = -60;
    Beacon beacon;
    std::optional<std::vector<std::byte>> rawElements; // sent instead of the beacon's elements
};

struct WifiInterface {
    std::u16string description;
    platform::Guid guid{};
    std::uint32_t state = 4; // of WLAN_INTERFACE_STATE: disconnected
    WifiConnection connection;
    std::optional<std::uint32_t> channel; // not every card reports it
    std::vector<AccessPoint> accessPoints;
};

struct WifiProfile {
    WifiService service = WifiService::Running;
    std::vector<WifiInterface> interfaces;
};

struct BluetoothPeer {
    std::string name;
    std::uint32_t classOfDevice = 0;
    bool connected = true; // else paired and out of reach
};

struct BluetoothRadio {
    std::string name;
    std::vector<BluetoothPeer> devices;
};

struct BluetoothProfile {
    bool supported = true; // whether the system has the Bluetooth library at all
    std::vector<BluetoothRadio> radios;
};

void ReadWifi(ProfileReader& reader, WifiProfile& wifi);
void ReadBluetooth(ProfileReader& reader, BluetoothProfile& bluetooth);

} // namespace machine
