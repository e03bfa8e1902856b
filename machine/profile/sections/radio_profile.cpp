#include "machine/profile/sections/radio_profile.h"

#include "machine/profile/profile_reader.h"
#include "unicode/utf.h"

#include <algorithm>

namespace machine {
namespace {

constexpr Presence Required = Presence::Required;

void ReadSsid(ProfileReader& reader, std::string& ssid) {
    constexpr std::size_t LongestSsid = 32;
    reader.String("ssid", ssid, Required, {"a string of at most 32 bytes", [](const std::string& text) {
                                               return text.size() <= LongestSsid;
                                           }});
}

void ReadBssid(ProfileReader& reader, std::array<std::uint8_t, 6>& bssid) {
    std::vector<std::byte> bytes;
    if (reader.Bytes("bssid", bytes, bssid.size(), ":", Required)) {
        for (std::size_t index = 0; index < bssid.size(); ++index) {
            bssid[index] = std::to_integer<std::uint8_t>(bytes[index]);
        }
    }
}

void ReadGuid(ProfileReader& reader, platform::Guid& guid) {
    std::vector<std::byte> bytes;
    if (!reader.Bytes("guid", bytes, sizeof(platform::Guid), "{}-")) {
        return;
    }
    const auto number16 = [&](std::size_t at) {
        return static_cast<std::uint16_t>(std::to_integer<unsigned>(bytes[at]) << 8 |
                                          std::to_integer<unsigned>(bytes[at + 1]));
    };
    guid = {static_cast<std::uint32_t>(number16(0)) << 16 | number16(2), number16(4), number16(6), {}};
    for (std::size_t index = 0; index < sizeof guid.data4; ++index) {
        guid.data4[index] = std::to_integer<std::uint8_t>(bytes[8 + index]);
    }
}

bool Contains(const std::vector<std::uint64_t>& numbers, std::uint64_t wanted) {
    return std::ranges::find(numbers, wanted) != numbers.end();
}

void ReadHighestMcs(ProfileReader& reader, std::vector<std::uint8_t>& highest) {
    reader.Numbers("mcs", highest, {0, 11});
}

void ReadHt(ProfileReader& reader, HtStation& ht) {
    std::vector<std::uint64_t> shortGuard;
    unsigned streams = 1;
    reader.Numbers("short_gi", shortGuard, {20, 40});
    ht.shortGuard20 = Contains(shortGuard, 20);
    ht.shortGuard40 = Contains(shortGuard, 40);
    reader.Number("streams", streams, {1, 4});
    ht.rates = static_cast<std::uint32_t>((std::uint64_t{1} << (8 * streams)) - 1); // eight for each
    reader.Number("mcs_set", ht.rates);
    reader.Choice("width", {"20", "40"}, ht.forty);
    reader.Flag("greenfield", ht.greenfield);
}

void ReadVht(ProfileReader& reader, VhtStation& vht) {
    std::vector<std::uint64_t> shortGuard;
    reader.Numbers("short_gi", shortGuard, {80, 160});
    vht.shortGuard80 = Contains(shortGuard, 80);
    vht.shortGuard160 = Contains(shortGuard, 160);
    reader.Choice("width", {"20/40", "80", "160", "80+80"}, vht.width);
    reader.Flag("ldpc", vht.ldpc);
    ReadHighestMcs(reader, vht.highestMcs);
}

void ReadHe(ProfileReader& reader, HeStation& he) {
    ReadHighestMcs(reader, he.highestMcs);
}

void ReadAccessPoint(ProfileReader& reader, AccessPoint& point) {
    double rssi = point.rssi;
    ReadBssid(reader, point.bssid);
    reader.Real("rssi", rssi, -120, 20);
    point.rssi = static_cast<std::int32_t>(rssi);
    ReadSsid(reader, point.beacon.ssid);
    reader.Number("channel", point.beacon.channel);
    reader.Object("ht", point.beacon.ht, ReadHt);
    reader.Object("vht", point.beacon.vht, ReadVht);
    reader.Object("he", point.beacon.he, ReadHe);
    if (std::vector<std::byte> elements; reader.Bytes("elements", elements)) {
        point.rawElements = std::move(elements);
    }
}

void ReadConnection(ProfileReader& reader, WifiConnection& connection) {
    ReadSsid(reader, connection.ssid);
    ReadBssid(reader, connection.bssid);
    if (reader.Has("phy_number")) {
        reader.Number("phy_number", connection.phyType);
    } else {
        // DOT11_PHY_TYPE counts them in this order.
        reader.Choice("phy",
                      {"unknown", "fhss", "dsss", "infrared", "ofdm", "hr-dsss", "erp", "ht", "vht", "dmg",
                       "he", "eht"},
                      connection.phyType);
    }
}

void ReadInterface(ProfileReader& reader, WifiInterface& interface) {
    constexpr std::size_t LongestDescription = 256;
    reader.String("description", interface.description, Required,
                  {"a string of at most 256 characters", [](const std::string& text) {
                       return unicode::WideFromUtf8(text).size() <= LongestDescription;
                   }});
    ReadGuid(reader, interface.guid);
    // WLAN_INTERFACE_STATE counts them in this order.
    reader.Choice("state",
                  {"not ready", "connected", "ad hoc", "disconnecting", "disconnected", "associating",
                   "discovering", "authenticating"},
                  interface.state);
    reader.Object("connection", interface.connection, ReadConnection);
    reader.Members("channel", interface.channel);
    reader.Objects("access_points", interface.accessPoints, ReadAccessPoint);
}

void ReadPeer(ProfileReader& reader, BluetoothPeer& peer) {
    reader.Members("name", peer.name, "connected", peer.connected);
    reader.Number("class", peer.classOfDevice, {0, 0xFFFFFF}, Required);
}

void ReadRadio(ProfileReader& reader, BluetoothRadio& radio) {
    reader.String("name", radio.name);
    reader.Objects("devices", radio.devices, ReadPeer);
}

} // namespace

void ReadWifi(ProfileReader& reader, WifiProfile& wifi) {
    reader.Choice("service", {"running", "stopped", "missing"}, wifi.service);
    reader.Objects("interfaces", [&](ProfileReader& row) {
        WifiInterface& interface = wifi.interfaces.emplace_back();
        const auto number = static_cast<std::uint32_t>(wifi.interfaces.size());
        interface.guid = {number, 0x57AF, 0x4D1A, {0x90, 0, 0, 0, 0, 0, 0, 1}};
        ReadInterface(row, interface);
    });
}

void ReadBluetooth(ProfileReader& reader, BluetoothProfile& bluetooth) {
    reader.Flag("supported", bluetooth.supported);
    reader.Objects("radios", bluetooth.radios, ReadRadio);
}

} // namespace machine
