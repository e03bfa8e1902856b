#include "machine/profile/wifi_profile.h"

#include "machine/profile/profile_reader.h"
#include "machine/text/wide_text.h"

#include <algorithm>
#include <span>

namespace machine {
namespace {

constexpr std::size_t LongestSsid = 32;
constexpr std::size_t LongestDescription = 256;

std::string ReadSsid(ProfileReader& reader) {
    std::string ssid = reader.Text("ssid");
    if (ssid.size() > LongestSsid) {
        reader.Fail("ssid", "at most 32 bytes");
    }
    return ssid;
}

/// Bytes written as text, the marks between them left out.
std::vector<std::byte> MarkedBytes(ProfileReader& reader, std::string_view name, std::string_view marks,
                                   std::size_t count) {
    std::string digits = reader.Text(name);
    std::erase_if(digits,
                  [marks](char character) { return marks.find(character) != std::string_view::npos; });
    std::vector<std::byte> bytes;
    if (!BytesFromHex(digits, bytes) || bytes.size() != count) {
        reader.Fail(name, std::to_string(count) + " bytes as pairs of hexadecimal digits");
    }
    return bytes;
}

std::array<std::uint8_t, 6> ReadBssid(ProfileReader& reader) {
    const auto bytes = MarkedBytes(reader, "bssid", ":", 6);
    std::array<std::uint8_t, 6> address{};
    std::ranges::transform(bytes, address.begin(), std::to_integer<std::uint8_t>);
    return address;
}

platform::Guid ReadGuid(ProfileReader& reader, std::size_t number) {
    if (!reader.Has("guid")) {
        return {static_cast<std::uint32_t>(number), 0x57AF, 0x4D1A, {0x90, 0, 0, 0, 0, 0, 0, 1}};
    }
    const auto bytes = MarkedBytes(reader, "guid", "{}-", sizeof(platform::Guid));
    const auto number16 = [&](std::size_t at) {
        return static_cast<std::uint16_t>(std::to_integer<unsigned>(bytes[at]) << 8 |
                                          std::to_integer<unsigned>(bytes[at + 1]));
    };
    platform::Guid guid{
        static_cast<std::uint32_t>(number16(0)) << 16 | number16(2), number16(4), number16(6), {}};
    std::ranges::transform(std::span(bytes).subspan(8), guid.data4, std::to_integer<std::uint8_t>);
    return guid;
}

std::vector<std::uint8_t> ReadHighestMcs(ProfileReader& reader) {
    std::vector<std::uint8_t> highest;
    for (const std::uint64_t mcs : reader.Numbers("mcs", 0, 11)) {
        highest.push_back(static_cast<std::uint8_t>(mcs));
    }
    return highest;
}

bool Contains(const std::vector<std::uint64_t>& numbers, std::uint64_t wanted) {
    return std::ranges::find(numbers, wanted) != numbers.end();
}

HtStation ReadHt(ProfileReader reader) {
    const auto shortGuard = reader.Numbers("short_gi", 20, 40);
    const auto streams = reader.Number("streams", 1, 4, 1);
    const auto eachStream = static_cast<std::uint32_t>((std::uint64_t{1} << (8 * streams)) - 1);
    HtStation ht{.present = true,
                 .forty = reader.Choice("width", {"20", "40"}, 0) == 1,
                 .greenfield = reader.Flag("greenfield", false),
                 .shortGuard20 = Contains(shortGuard, 20),
                 .shortGuard40 = Contains(shortGuard, 40),
                 .rates = reader.Number<std::uint32_t>("mcs_set", eachStream)};
    reader.Finish();
    return ht;
}

VhtStation ReadVht(ProfileReader reader) {
    const auto shortGuard = reader.Numbers("short_gi", 80, 160);
    VhtStation vht{.present = true,
                   .width = static_cast<VhtWidth>(reader.Choice("width", {"20/40", "80", "160", "80+80"}, 1)),
                   .ldpc = reader.Flag("ldpc", false),
                   .shortGuard80 = Contains(shortGuard, 80),
                   .shortGuard160 = Contains(shortGuard, 160),
                   .highestMcs = ReadHighestMcs(reader)};
    reader.Finish();
    return vht;
}

HeStation ReadHe(ProfileReader reader) {
    HeStation he{.present = true, .highestMcs = ReadHighestMcs(reader)};
    reader.Finish();
    return he;
}

AccessPoint ReadAccessPoint(ProfileReader& reader) {
    AccessPoint point;
    point.bssid = ReadBssid(reader);
    point.rssi = static_cast<std::int32_t>(reader.Real("rssi", -120, 20, -60));
    point.beacon.ssid = ReadSsid(reader);
    point.beacon.channel = reader.Number<std::uint8_t>("channel", 1);
    if (reader.Has("ht")) {
        point.beacon.ht = ReadHt(reader.Object("ht"));
    }
    if (reader.Has("vht")) {
        point.beacon.vht = ReadVht(reader.Object("vht"));
    }
    if (reader.Has("he")) {
        point.beacon.he = ReadHe(reader.Object("he"));
    }
    if (reader.Has("elements")) {
        point.rawElements = reader.Bytes("elements");
    }
    reader.Finish();
    return point;
}

WifiConnection ReadConnection(ProfileReader reader) {
    WifiConnection connection;
    connection.ssid = ReadSsid(reader);
    connection.bssid = ReadBssid(reader);
    if (reader.Has("phy_number")) {
        connection.phyType = reader.Number<std::uint32_t>("phy_number", 0);
    } else {
        // DOT11_PHY_TYPE counts them in this order.
        connection.phyType =
            static_cast<std::uint32_t>(reader.Choice("phy",
                                                     {"unknown", "fhss", "dsss", "infrared", "ofdm",
                                                      "hr-dsss", "erp", "ht", "vht", "dmg", "he", "eht"},
                                                     0));
    }
    reader.Finish();
    return connection;
}

WifiInterface ReadInterface(ProfileReader& reader, std::size_t number) {
    WifiInterface interface;
    interface.description = WideFromUtf8(reader.Text("description"));
    if (interface.description.size() > LongestDescription) {
        reader.Fail("description", "at most 256 characters");
    }
    interface.guid = ReadGuid(reader, number);
    // WLAN_INTERFACE_STATE counts them in this order.
    interface.state = static_cast<std::uint32_t>(
        reader.Choice("state",
                      {"not ready", "connected", "ad hoc", "disconnecting", "disconnected", "associating",
                       "discovering", "authenticating"},
                      4));
    if (reader.Has("connection")) {
        interface.connection = ReadConnection(reader.Object("connection"));
    }
    if (reader.Has("channel")) {
        interface.channel = reader.Number<std::uint32_t>("channel", 0);
    }
    for (auto& point : reader.Objects("access_points")) {
        interface.accessPoints.push_back(ReadAccessPoint(point));
    }
    reader.Finish();
    return interface;
}

} // namespace

WifiProfile ReadWifi(ProfileReader reader) {
    WifiProfile wifi;
    wifi.service = static_cast<WifiService>(reader.Choice("service", {"running", "stopped", "missing"}, 0));
    for (auto& interface : reader.Objects("interfaces")) {
        wifi.interfaces.push_back(ReadInterface(interface, wifi.interfaces.size() + 1));
    }
    reader.Finish();
    return wifi;
}

} // namespace machine
